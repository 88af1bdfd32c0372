#include "tools/Expression.h"

#include <array>
#include <charconv>
#include <utility>

#include "base/text.h"
#include "tools/ExpressionFunctions.h"
#include "tools/ExpressionOperators.h"

namespace ssq {

namespace {

using enum ExpressionOperator;

enum class TokenKind { kEnd, kValue, kName, kOperator, kOpen, kClose, kComma };

struct Token {
    TokenKind kind = TokenKind::kEnd;
    std::size_t at = 0;     // byte it begins at
    ExpressionValue value;  // of kValue
    std::string name;       // of kName, in lower case
    ExpressionOperator op = kPlus;
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsNameCharacter(char c) {
    return IsLetter(c) || IsDigit(c) || c == '_';
}

// Cuts the text into tokens, one at a time.
class Lexer {
  public:
    explicit Lexer(std::string_view text) : text_(text) {}

    // Goes to the next token and returns the byte it begins at.
    std::size_t SkipBlanks() {
        while (Peek() == ' ' || Peek() == '\t') ++at_;
        return at_;
    }

    // The token that begins here.
    Token Next();

  private:
    char Peek(std::size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }
    void SkipDigits() {
        while (IsDigit(Peek())) ++at_;
    }

    ExpressionValue ReadNumber();
    bool ReadBasedNumber(ExpressionValue& value);
    ExpressionValue ReadText();
    void ReadWord(Token& token);
    bool ReadMark(Token& token);
    ExpressionOperator ReadComparison();

    std::string_view text_;
    std::size_t at_ = 0;
};

Token Lexer::Next() {
    Token token;
    const char c = Peek();
    if (at_ == text_.size() || c == '\'') return token;
    if (IsLetter(c)) {
        ReadWord(token);
    } else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
        token.kind = TokenKind::kValue;
        token.value = ReadNumber();
    } else if (c == '"') {
        token.kind = TokenKind::kValue;
        token.value = ReadText();
    } else if (c == '&' && ReadBasedNumber(token.value)) {
        token.kind = TokenKind::kValue;
    } else if (!ReadMark(token)) {
        throw ExpressionFault{"不能识别的字符“" + Characters(text_.substr(at_), 1, 1) + "”"};
    }
    return token;
}

ExpressionValue Lexer::ReadNumber() {
    const std::size_t start = at_;
    SkipDigits();
    if (Peek() == '.') {
        ++at_;
        SkipDigits();
    }
    // Without digits behind it the "e" begins a word, such as eqv.
    const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
    if ((Peek() == 'e' || Peek() == 'E') && IsDigit(Peek(1 + sign))) {
        at_ += 1 + sign;
        SkipDigits();
    }
    double number = 0;
    const auto end = std::from_chars(text_.data() + start, text_.data() + at_, number);
    if (end.ec != std::errc{}) throw ExpressionFault{"数字超出范围"};
    return number;
}

// &HFF and &O17, a second & behind the digits allowed. The whole word must be digits: in "a"&hex(9)
// the & joins. Per the language's number tokens, values of 16 and 32 bits are signed: &HFFFF is -1
// and &HFFFF& is 65535.
bool Lexer::ReadBasedNumber(ExpressionValue& value) {
    const char mark = Peek(1);
    const bool isHex = mark == 'h' || mark == 'H';
    if (!isHex && mark != 'o' && mark != 'O') return false;
    std::size_t end = at_ + 2;
    while (end < text_.size() && IsNameCharacter(text_[end])) ++end;
    std::uint32_t bits = 0;
    const char* first = text_.data() + at_ + 2;
    const char* last = text_.data() + end;
    const auto read = std::from_chars(first, last, bits, isHex ? 16 : 8);
    if (first == last || read.ptr != last) return false;
    if (read.ec != std::errc{}) throw ExpressionFault{"数字超出范围"};
    at_ = end;
    const bool isLong = Peek() == '&';
    if (isLong) ++at_;
    const bool isWord = !isLong && bits <= UINT16_MAX;
    value = static_cast<double>(isWord ? static_cast<std::int16_t>(bits)
                                       : static_cast<std::int32_t>(bits));
    return true;
}

ExpressionValue Lexer::ReadText() {
    std::string text;
    for (std::size_t from = at_ + 1;;) {
        const std::size_t quote = text_.find('"', from);
        if (quote == std::string_view::npos) throw ExpressionFault{"文字缺少右引号"};
        text += text_.substr(from, quote - from);
        from = quote + 1;
        if (from == text_.size() || text_[from] != '"') {
            at_ = from;
            return text;
        }
        text += '"';
        ++from;
    }
}

struct WordOperator {
    std::string_view word;
    ExpressionOperator op;
};
constexpr std::array kWordOperators = {
    WordOperator{"mod", kMod}, WordOperator{"not", kNot}, WordOperator{"and", kAnd},
    WordOperator{"or", kOr},   WordOperator{"xor", kXor}, WordOperator{"eqv", kEqv},
    WordOperator{"imp", kImp},
};

void Lexer::ReadWord(Token& token) {
    const std::size_t start = at_;
    while (IsNameCharacter(Peek())) ++at_;
    token.name = LowerCase(text_.substr(start, at_ - start));
    for (const auto& [word, op] : kWordOperators) {
        if (token.name != word) continue;
        token.kind = TokenKind::kOperator;
        token.op = op;
        return;
    }
    const bool isTrue = token.name == "true";
    token.kind = isTrue || token.name == "false" || token.name == "empty" ? TokenKind::kValue
                                                                          : TokenKind::kName;
    if (isTrue || token.name == "false") token.value = isTrue;
    // Words of the language that have no value a formula could use.
    if (token.name == "null" || token.name == "nothing" || token.name == "is") {
        throw ExpressionFault{"公式不支持“" + token.name + "”"};
    }
}

struct MarkOperator {
    char mark;
    ExpressionOperator op;
};
constexpr std::array kMarkOperators = {
    MarkOperator{'^', kPower},        MarkOperator{'*', kMultiply}, MarkOperator{'/', kDivide},
    MarkOperator{'\\', kDivideWhole}, MarkOperator{'+', kPlus},     MarkOperator{'-', kMinus},
    MarkOperator{'&', kConcatenate},
};

bool Lexer::ReadMark(Token& token) {
    const char c = Peek();
    if (c == '(' || c == ')' || c == ',') {
        token.kind = c == '(' ? TokenKind::kOpen : c == ')' ? TokenKind::kClose : TokenKind::kComma;
        ++at_;
        return true;
    }
    token.kind = TokenKind::kOperator;
    if (c == '=' || c == '<' || c == '>') {
        token.op = ReadComparison();
        return true;
    }
    for (const auto& [mark, op] : kMarkOperators) {
        if (c != mark) continue;
        token.op = op;
        ++at_;
        return true;
    }
    return false;
}

// One mark or two different ones in either order, as the language's grammar has them.
ExpressionOperator Lexer::ReadComparison() {
    const char first = text_[at_++];
    const char second = Peek();
    const bool isPair = second != first && (second == '=' || second == '<' || second == '>');
    if (isPair) ++at_;
    const auto has = [&](char mark) { return first == mark || (isPair && second == mark); };
    if (has('<') && has('>')) return kNotEqual;
    if (has('<')) return has('=') ? kLessEqual : kLess;
    if (has('>')) return has('=') ? kGreaterEqual : kGreater;
    return kEqual;
}

// From the loosest, per the language reference's order of operators; the sign of a number binds
// looser than ^ and tighter than *.
constexpr int kLoosest = 1;
constexpr int kComparisons = 7;
constexpr int kSign = 13;

int Precedence(ExpressionOperator op) {
    switch (op) {
        case kImp:
            return kLoosest;
        case kEqv:
            return 2;
        case kXor:
            return 3;
        case kOr:
            return 4;
        case kAnd:
            return 5;
        case kNot:
            return 6;
        case kEqual:
        case kNotEqual:
        case kLess:
        case kLessEqual:
        case kGreater:
        case kGreaterEqual:
            return kComparisons;
        case kConcatenate:
            return 8;
        case kPlus:
        case kMinus:
            return 9;
        case kMod:
            return 10;
        case kDivideWhole:
            return 11;
        case kMultiply:
        case kDivide:
            return 12;
        case kPower:
            return 14;
    }
    return 0;
}

// Evaluates while it parses; a fault leaves place() at the token it belongs to.
class Parser {
  public:
    explicit Parser(std::string_view text) : lexer_(text) {}

    ExpressionValue ParseAll() {
        Advance();
        if (token_.kind == TokenKind::kEnd) throw ExpressionFault{"公式是空的"};
        ExpressionValue value = ParseExpression(kLoosest);
        if (token_.kind != TokenKind::kEnd) RefuseToken();
        return value;
    }

    std::size_t place() const { return place_; }

  private:
    void Advance() {
        place_ = lexer_.SkipBlanks();
        token_ = lexer_.Next();
        token_.at = place_;
    }

    // The token that stands where an operator or the end was due.
    [[noreturn]] void RefuseToken() const {
        if (token_.kind == TokenKind::kClose) throw ExpressionFault{"多余的右括号"};
        if (token_.kind == TokenKind::kComma) throw ExpressionFault{"多余的逗号"};
        throw ExpressionFault{"这里缺少运算符"};
    }

    ExpressionValue ParseExpression(int loosest);
    ExpressionValue ParseOperand();
    ExpressionValue ParsePrefix();
    ExpressionValue ParseParentheses();
    ExpressionValue ParseName();
    ExpressionValue ParseCall(const ExpressionFunction& function, std::size_t at);

    Lexer lexer_;
    Token token_;
    std::size_t place_ = 0;
    int depth_ = 0;
};

ExpressionValue Parser::ParseExpression(int loosest) {
    ExpressionValue left = ParseOperand();
    while (token_.kind == TokenKind::kOperator && token_.op != kNot) {
        const ExpressionOperator op = token_.op;
        const int precedence = Precedence(op);
        if (precedence < loosest) break;
        const std::size_t at = token_.at;
        Advance();
        const ExpressionValue right = ParseExpression(precedence + 1);
        place_ = at;
        left = ApplyOperator(op, left, right);
        place_ = token_.at;
    }
    return left;
}

ExpressionValue Parser::ParseOperand() {
    if (++depth_ > kDeepestExpression) throw ExpressionFault{"嵌套太深"};
    ExpressionValue value;
    switch (token_.kind) {
        case TokenKind::kValue:
            value = std::move(token_.value);
            Advance();
            break;
        case TokenKind::kName:
            value = ParseName();
            break;
        case TokenKind::kOpen:
            value = ParseParentheses();
            break;
        case TokenKind::kOperator:
            value = ParsePrefix();
            break;
        case TokenKind::kEnd:
            throw ExpressionFault{"公式不完整"};
        case TokenKind::kClose:
        case TokenKind::kComma:
            throw ExpressionFault{"这里缺少数字或名称"};
    }
    --depth_;
    return value;
}

ExpressionValue Parser::ParsePrefix() {
    const ExpressionOperator op = token_.op;
    if (op != kMinus && op != kPlus && op != kNot) throw ExpressionFault{"这里缺少数字或名称"};
    const std::size_t at = token_.at;
    Advance();
    const ExpressionValue operand = ParseExpression(op == kNot ? kComparisons : kSign);
    place_ = at;
    ExpressionValue value = op == kNot     ? Not(operand)
                            : op == kMinus ? Negate(operand)
                                           : ExpressionValue(ToNumber(operand));
    place_ = token_.at;
    return value;
}

ExpressionValue Parser::ParseParentheses() {
    Advance();
    ExpressionValue value = ParseExpression(kLoosest);
    if (token_.kind != TokenKind::kClose) {
        if (token_.kind == TokenKind::kEnd) throw ExpressionFault{"缺少右括号"};
        RefuseToken();
    }
    Advance();
    return value;
}

ExpressionValue Parser::ParseName() {
    const std::string name = std::move(token_.name);
    const std::size_t at = token_.at;
    const ExpressionFunction* function = FindExpressionFunction(name);
    Advance();
    if (function) return ParseCall(*function, at);
    if (token_.kind != TokenKind::kOpen) return {};
    place_ = at;
    throw ExpressionFault{"没有函数“" + name + "”"};
}

ExpressionValue Parser::ParseCall(const ExpressionFunction& function, std::size_t at) {
    std::array<ExpressionValue, kMostArguments> arguments;
    std::size_t count = 0;
    if (token_.kind == TokenKind::kOpen) {
        Advance();
        while (token_.kind != TokenKind::kClose) {
            ExpressionValue argument = ParseExpression(kLoosest);
            if (count < kMostArguments) arguments[count] = std::move(argument);
            ++count;
            if (token_.kind == TokenKind::kEnd) throw ExpressionFault{"缺少右括号"};
            if (token_.kind == TokenKind::kClose) break;
            if (token_.kind != TokenKind::kComma) RefuseToken();
            Advance();
            if (token_.kind == TokenKind::kClose) throw ExpressionFault{"这里缺少数字或名称"};
        }
        Advance();
    }
    place_ = at;
    if (count < function.fewest || count > function.most) {
        throw ExpressionFault{"函数“" + std::string(function.name) + "”的参数个数不对"};
    }
    ExpressionValue value = function.apply({arguments.data(), count});
    place_ = token_.at;
    return value;
}

}  // namespace

ExpressionResult EvaluateExpression(std::string_view text) {
    if (text.size() > kLongestExpression) return {{}, ExpressionError{"公式太长", 1}};
    Parser parser(text);
    try {
        return {parser.ParseAll(), {}};
    } catch (const ExpressionFault& fault) {
        return {{},
                ExpressionError{fault.reason, CharacterCount(text.substr(0, parser.place())) + 1}};
    }
}

}  // namespace ssq
