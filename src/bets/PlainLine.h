// A line of a plan as it is read: one form for each sign, however it was typed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ssq {

class PlainLine {
  public:
    // `line` is one line in UTF-8 without its end; it must stay where it is.
    explicit PlainLine(std::string_view line);

    // Without remark and needless blanks: full-width forms as ASCII, letters as capitals, every
    // kind of dash and 至 as "~", every kind of comma as ",".
    std::string_view text() const { return text_; }

    // What the user typed for a part of text().
    std::string Typed(std::string_view part) const;

  private:
    void Append(std::string_view plain, std::size_t begin, std::size_t end);

    std::string_view source_;
    std::string text_;
    bool blank_ = false;  // a blank is due if what follows keeps it
    // Where in the source the character of each byte of the text begins and ends.
    std::vector<std::pair<std::size_t, std::size_t>> places_;
};

// Lines end in CR LF, CR or LF.
std::vector<std::string_view> SplitLines(std::string_view text);

}  // namespace ssq
