// Regular expressions as the formulas and page patterns are written: case is ignored, a dot is
// any character but a line feed, `$` is the end of the text.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct pcre2_real_code_8;

namespace ssq {

// Texts are UTF-8. Every search is global. A search has no result (nullopt) when the pattern is
// bad, when the text is no UTF-8, and when it costs too much: a text made to hang it ends it.
class Regex {
  public:
    explicit Regex(std::string_view pattern);

    bool valid() const { return code_ != nullptr; }

    // All matches in order.
    std::optional<std::vector<std::string>> FindAll(std::string_view text) const;

    std::optional<std::size_t> Count(std::string_view text) const;

    // The text with all matches replaced. In the replacement $1 to $9 stand for groups, $& for
    // the match and $$ for a dollar sign; any other dollar sign is one.
    std::optional<std::string> Replace(std::string_view text, std::string_view replacement) const;

  private:
    struct Deleter {
        void operator()(pcre2_real_code_8* code) const;
    };

    // Calls `visit(groups)` for each match, where groups[0] is the match; false as above.
    template <typename Visit>
    bool Walk(std::string_view text, Visit visit) const;

    std::unique_ptr<pcre2_real_code_8, Deleter> code_;
};

// Number of matches; 0 where the search has no result.
int RegexCount(std::string_view pattern, std::string_view text);

}  // namespace ssq
