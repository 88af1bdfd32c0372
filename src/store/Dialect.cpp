#include "store/Dialect.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "base/text.h"

namespace ssq {

namespace {

struct Token {
    enum class Kind { kBlank, kWord, kNumber, kQuoted, kSign };

    Kind kind = Kind::kSign;
    std::string_view text;
    std::string suffix;  // what the translation puts behind it

    bool Is(std::string_view word) const {
        return kind != Kind::kQuoted && EqualIgnoringCase(text, word);
    }
    template <typename Words>
    bool IsOneOf(const Words& words) const {
        return std::any_of(words.begin(), words.end(), [&](auto word) { return Is(word); });
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

bool StartsQuote(char c) {
    return c == '\'' || c == '"' || c == '[' || c == '`';
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

// Where the comment that starts at `from` ends; `from` itself when none starts there.
std::size_t CommentEnd(std::string_view sql, std::size_t from) {
    const std::string_view start = sql.substr(from, 2);
    if (start == "--") return std::min(sql.find('\n', from), sql.size());
    if (start != "/*") return from;
    const std::size_t close = sql.find("*/", from + 2);
    return close == std::string_view::npos ? sql.size() : close + 2;
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
        } else if (const std::size_t comment = CommentEnd(sql, at); comment > at) {
            kind = Token::Kind::kBlank;
            end = comment;
        } else if (StartsQuote(c)) {
            kind = Token::Kind::kQuoted;
            end = QuoteEnd(sql, at);
        } else if (IsDigit(c)) {
            kind = Token::Kind::kNumber;
            end = RunEnd(sql, at, [](char x) { return IsWordCharacter(x) || x == '.'; });
        } else if (IsWordCharacter(c)) {
            kind = Token::Kind::kWord;
            end = RunEnd(sql, at, IsWordCharacter);
        }
        tokens.push_back({kind, sql.substr(at, end - at), {}});
        at = end;
    }
    return tokens;
}

// The tokens from `first` up to `end`, as they are to be sent.
std::string TextOf(const Tokens& tokens, std::size_t first, std::size_t end) {
    std::string sql;
    for (std::size_t at = first; at < end; ++at) {
        sql += tokens[at].text;
        sql += tokens[at].suffix;
    }
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
    Select(Tokens& tokens, std::size_t first) : tokens_(tokens) {
        int depth = 0;
        for (std::size_t at = first; at < tokens.size(); ++at) {
            if (tokens[at].Is(")") && --depth < 0) break;
            if (tokens[at].Is(";") && depth == 0) break;
            if (tokens[at].kind == Token::Kind::kBlank) continue;
            if (depth == 0) own_.push_back(at);
            if (tokens[at].Is("(")) ++depth;
        }
        FindClauses();
    }

    // Makes `top N` the limit at the select's end, and lets rows that tie on the sort key come by
    // rowid where they are rows of one table.
    void Translate(const std::function<bool(std::string_view)>& isTable) {
        const std::optional<std::string> count = TakeTop();
        const std::string limit = count ? " limit " + LimitOf(*count) : std::string();
        if (const auto source = SortedSource(); source && isTable(*source)) {
            tokens_[own_[keysEnd_ - 1]].suffix += ",rowid";
        }
        if (count) tokens_[own_.back()].suffix += limit;
    }

  private:
    const Token& Own(std::size_t index) const { return tokens_[own_[index]]; }

    // Index into own_, its size when there is none.
    std::size_t Find(std::string_view word, std::size_t from) const {
        std::size_t index = from;
        while (index < own_.size() && !Own(index).Is(word)) ++index;
        return std::min(index, own_.size());
    }

    void FindClauses() {
        from_ = Find("from", 0);
        order_ = Find("order", from_ + 1);
        if (order_ + 2 >= own_.size() || !Own(order_ + 1).Is("by")) order_ = own_.size();
        keysEnd_ = Find("limit", order_ + 2);
        if (keysEnd_ <= order_ + 2) order_ = own_.size();
    }

    bool IsSorted() const { return order_ < own_.size(); }

    // The text from one own token up to another, what stands in parentheses between included.
    std::string TextBetween(std::size_t first, std::size_t end) const {
        const std::size_t last = end < own_.size() ? own_[end] : own_.back() + 1;
        return TextOf(tokens_, own_[first], last);
    }

    // Takes `top N` out and gives back N.
    std::optional<std::string> TakeTop() {
        const std::size_t top =
            !own_.empty() && (Own(0).Is("distinct") || Own(0).Is("all")) ? 1 : 0;
        if (top + 2 >= own_.size() || !Own(top).Is("top") ||
            Own(top + 1).kind != Token::Kind::kNumber) {
            return std::nullopt;
        }
        std::string count(Own(top + 1).text);
        tokens_[own_[top]].text = {};
        tokens_[own_[top + 1]].text = {};
        return count;
    }

    // N, or the number of rows up to the last one that ties with row N on the sort key: one less
    // than the rank of the first row behind it. The ranking ends at that row, so it costs little
    // where an index gives the order.
    std::string LimitOf(const std::string& count) const {
        constexpr std::array<std::string_view, 3> kCompound = {"union", "intersect", "except"};
        const auto isCompound = [&](std::size_t at) { return tokens_[at].IsOneOf(kCompound); };
        const bool hasPosition =
            IsSorted() && Own(order_ + 2).kind == Token::Kind::kNumber;  // order by 2
        if (!IsSorted() || hasPosition || std::any_of(own_.begin(), own_.end(), isCompound)) {
            return count;
        }
        std::string source = TextBetween(from_, order_);
        if (Own(0).Is("distinct") || SortsByAlias()) {
            source = "from (select " + TextBetween(0, order_) + ")";
        }
        return "coalesce((select place-1 from (select rank() over (order by " +
               TextBetween(order_ + 2, keysEnd_) + ") as place " + source + ") where place>" +
               count + " limit 1),-1)";
    }

    // Whether a key is a name that the select list gives.
    bool SortsByAlias() const {
        for (std::size_t as = Find("as", 0); as < from_; as = Find("as", as + 1)) {
            if (Find(Own(as + 1).text, order_ + 2) < keysEnd_) return true;
        }
        return false;
    }

    // The one name it reads sorted rows of; none when it groups, joins or is one of several.
    std::optional<std::string_view> SortedSource() const {
        constexpr std::array<std::string_view, 6> kManyToOne = {"distinct", "group",     "join",
                                                                "union",    "intersect", "except"};
        if (!IsSorted() || Own(from_ + 1).kind != Token::Kind::kWord) return std::nullopt;
        for (std::size_t index = 0; index < order_; ++index) {
            const bool listGoesOn = index > from_ && Own(index).Is(",");
            if (listGoesOn || Own(index).IsOneOf(kManyToOne)) return std::nullopt;
        }
        return Own(from_ + 1).text;
    }

    Tokens& tokens_;
    std::vector<std::size_t> own_;
    // Indices into own_.
    std::size_t from_ = 0;
    std::size_t order_ = 0;  // the end when nothing is sorted
    std::size_t keysEnd_ = 0;
};

// Whether a value can end with this token, so that an operator may follow.
bool EndsOperand(const Token& token) {
    constexpr std::array<std::string_view, 19> kOpening = {
        "select", "distinct", "all",  "where", "and",  "or",   "not", "by",      "on",    "having",
        "in",     "like",     "case", "when",  "then", "else", "set", "between", "values"};
    if (token.kind == Token::Kind::kWord) return !token.IsOneOf(kOpening);
    return token.kind != Token::Kind::kSign || token.Is(")");
}

// Whether a value can begin with this token.
bool BeginsOperand(const Token& token) {
    constexpr std::array<std::string_view, 9> kClosing = {"from", "as", "where", "order", "group",
                                                          "and",  "or", "asc",   "desc"};
    if (token.kind == Token::Kind::kWord) return !token.IsOneOf(kClosing);
    return token.kind != Token::Kind::kSign || token.Is("(") || token.Is("-") || token.Is("+");
}

// Whether the select at this token continues another one, to which a sort behind it belongs.
bool ContinuesSelect(const Tokens& tokens, std::size_t select) {
    constexpr std::array<std::string_view, 4> kJoining = {"union", "intersect", "except", "all"};
    std::size_t at = select;
    while (at > 0 && tokens[at - 1].kind == Token::Kind::kBlank) --at;
    return at > 0 && tokens[at - 1].IsOneOf(kJoining);
}

void TranslateMod(Tokens& tokens) {
    const Token* previous = nullptr;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        Token& token = tokens[at];
        if (token.kind == Token::Kind::kBlank) continue;
        if (token.Is("mod") && previous && EndsOperand(*previous)) {
            const std::size_t next = SkipBlanks(tokens, at + 1);
            if (next < tokens.size() && BeginsOperand(tokens[next])) {
                token = {Token::Kind::kSign, "%", {}};
            }
        }
        previous = &token;
    }
}

// Numbers the marks of bound values, so that a clause can be repeated.
void NumberMarks(Tokens& tokens) {
    int number = 0;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const bool isNumbered =
            at + 1 < tokens.size() && tokens[at + 1].kind == Token::Kind::kNumber;
        if (tokens[at].Is("?") && !isNumbered) tokens[at].suffix = std::to_string(++number);
    }
}

}  // namespace

std::string TranslateStatement(std::string_view sql,
                               const std::function<bool(std::string_view)>& isTable) {
    Tokens tokens = Tokenize(sql);
    NumberMarks(tokens);
    TranslateMod(tokens);
    // Inner selects first: an outer one can repeat their text.
    for (std::size_t at = tokens.size(); at-- > 0;) {
        if (tokens[at].Is("select") && !ContinuesSelect(tokens, at)) {
            Select(tokens, at + 1).Translate(isTable);
        }
    }
    return TextOf(tokens, 0, tokens.size());
}

bool IsEmptyStatement(std::string_view sql) {
    const Tokens tokens = Tokenize(sql);
    return SkipBlanks(tokens, 0) == tokens.size();
}

}  // namespace ssq
