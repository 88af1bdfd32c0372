#include "store/Dialect.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "app/numbers.h"
#include "app/text.h"

namespace ssq {

namespace {

struct Token {
    enum class Kind { kBlank, kWord, kNumber, kQuoted, kSign };

    Kind kind = Kind::kSign;
    std::string text;

    bool Is(std::string_view word) const {
        return kind != Kind::kQuoted && EqualIgnoringCase(text, word);
    }
};

using Tokens = std::vector<Token>;

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsWordCharacter(char c) {
    return IsDigit(c) || c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           static_cast<unsigned char>(c) >= 0x80;
}

// Where the quoted text that starts at `from` ends; a doubled quote belongs to the text.
std::size_t QuoteEnd(std::string_view sql, std::size_t from) {
    const char close = sql[from] == '[' ? ']' : sql[from];
    for (std::size_t at = from + 1; at < sql.size(); ++at) {
        if (sql[at] != close) continue;
        if (at + 1 < sql.size() && sql[at + 1] == close && close != ']') {
            ++at;
        } else {
            return at + 1;
        }
    }
    return sql.size();
}

template <typename Test>
std::size_t RunEnd(std::string_view sql, std::size_t from, Test test) {
    while (from < sql.size() && test(sql[from])) ++from;
    return from;
}

Tokens Tokenize(std::string_view sql) {
    Tokens tokens;
    for (std::size_t at = 0; at < sql.size();) {
        const char c = sql[at];
        std::size_t end = at + 1;
        Token::Kind kind = Token::Kind::kSign;
        if (IsBlank(c)) {
            kind = Token::Kind::kBlank;
            end = RunEnd(sql, at, IsBlank);
        } else if (c == '\'' || c == '"' || c == '[' || c == '`') {
            kind = Token::Kind::kQuoted;
            end = QuoteEnd(sql, at);
        } else if (IsDigit(c)) {
            kind = Token::Kind::kNumber;
            end = RunEnd(sql, at, [](char x) { return IsWordCharacter(x) || x == '.'; });
        } else if (IsWordCharacter(c)) {
            kind = Token::Kind::kWord;
            end = RunEnd(sql, at, IsWordCharacter);
        }
        tokens.push_back({kind, std::string(sql.substr(at, end - at))});
        at = end;
    }
    return tokens;
}

std::string TextOf(const Tokens& tokens) {
    std::string sql;
    for (const Token& token : tokens) sql += token.text;
    return sql;
}

std::size_t SkipBlanks(const Tokens& tokens, std::size_t at) {
    while (at < tokens.size() && tokens[at].kind == Token::Kind::kBlank) ++at;
    return at;
}

// One select: the tokens of its own level, from behind the word to its closing parenthesis, the
// semicolon or the end.
class Select {
  public:
    Select(Tokens& tokens, std::size_t first) : tokens_(tokens), first_(first) {
        int depth = 0;
        for (end_ = first; end_ < tokens.size(); ++end_) {
            if (tokens[end_].Is("(")) ++depth;
            if (tokens[end_].Is(")") && depth-- == 0) break;
            if (tokens[end_].Is(";") && depth == 0) break;
            if (depth == 0 && tokens[end_].kind == Token::Kind::kWord) own_.push_back(end_);
        }
    }

    // Takes `top N` out and gives back N.
    std::optional<std::string> TakeTop() {
        const std::size_t top = SkipBlanks(tokens_, first_);
        if (top >= tokens_.size() || !tokens_[top].Is("top")) return std::nullopt;
        const std::size_t number = SkipBlanks(tokens_, top + 1);
        if (number >= tokens_.size() || tokens_[number].kind != Token::Kind::kNumber) {
            return std::nullopt;
        }
        std::string count = tokens_[number].text;
        for (std::size_t at = top; at <= number; ++at) tokens_[at].text.clear();
        return count;
    }

    // The one table it reads, when it reads rows of one name and neither groups nor joins.
    std::optional<std::string> SingleSource() const {
        const auto from = FindOwn("from");
        if (!from || FindOwn("group") || FindOwn("distinct") || FindOwn("join") ||
            FindOwn("union")) {
            return std::nullopt;
        }
        const std::size_t name = SkipBlanks(tokens_, *from + 1);
        if (name >= end_ || tokens_[name].kind != Token::Kind::kWord) return std::nullopt;
        const std::size_t next = SkipBlanks(tokens_, name + 1);
        const bool listGoesOn = next < end_ && tokens_[next].Is(",");
        return listGoesOn ? std::nullopt : std::optional(tokens_[name].text);
    }

    bool IsOrdered() const { return FindOwn("order").has_value(); }

    void Append(const std::string& text) {
        // Before the closing sign, behind what may already have been appended.
        Token tail{Token::Kind::kSign, text};
        tokens_.insert(tokens_.begin() + static_cast<std::ptrdiff_t>(end_), std::move(tail));
        ++end_;
    }

  private:
    std::optional<std::size_t> FindOwn(std::string_view word) const {
        for (const std::size_t at : own_) {
            if (tokens_[at].Is(word)) return at;
        }
        return std::nullopt;
    }

    Tokens& tokens_;
    std::size_t first_;
    std::size_t end_ = 0;
    std::vector<std::size_t> own_;
};

bool EndsOperand(const Token& token) {
    return token.kind == Token::Kind::kNumber || token.kind == Token::Kind::kQuoted ||
           token.Is(")") || token.kind == Token::Kind::kWord;
}

void TranslateMod(Tokens& tokens) {
    const Token* previous = nullptr;
    for (Token& token : tokens) {
        if (token.kind == Token::Kind::kBlank) continue;
        if (token.kind == Token::Kind::kWord && token.Is("mod") && previous &&
            EndsOperand(*previous)) {
            token = {Token::Kind::kSign, "%"};
        }
        previous = &token;
    }
}

}  // namespace

std::string TranslateStatement(std::string_view sql,
                               const std::function<bool(std::string_view)>& isTable) {
    Tokens tokens = Tokenize(sql);
    TranslateMod(tokens);
    // From the last select to the first, so that what an inner one appends cannot move the
    // beginning of an outer one.
    for (std::size_t at = tokens.size(); at-- > 0;) {
        if (tokens[at].kind != Token::Kind::kWord || !tokens[at].Is("select")) continue;
        Select select(tokens, at + 1);
        const auto count = select.TakeTop();
        const auto source = select.SingleSource();
        if (select.IsOrdered() && source && isTable(*source)) select.Append(",rowid");
        if (count) select.Append(" limit " + *count);
    }
    return TextOf(tokens);
}

}  // namespace ssq
