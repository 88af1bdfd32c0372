// Reading web pages and cutting values out of their text.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace ssq {

class Host;

struct FetchOptions {
    std::chrono::milliseconds connectTimeout{10'000};
    std::chrono::milliseconds totalTimeout{30'000};
    std::size_t largestBody = std::size_t{8} << 20;  // bytes; the pages have some 10,000
};

// The body of a page as UTF-8 text, read from the network and never from a cache; the windows show
// the wait cursor meanwhile. The sites serve GBK; a page that declares UTF-8 and holds it is taken
// as that. Redirects are followed on http and https. Empty when anything fails, without a message.
std::string FetchPage(Host& host, const std::string& url, const FetchOptions& options = {});

// The body of a page as text, by the Content-Type header and the page's own declaration. Bytes
// that are no character become U+FFFD.
std::string DecodePage(std::string_view body, std::string_view contentType);

// The text between the first `startMark` and the first `endMark` behind it. Where a mark is
// missing, or nothing stands between them: a box without a title that holds the text and both
// positions, counted in characters from 1, and an empty result.
std::string CutBetween(Host& host, std::string_view startMark, std::string_view endMark,
                       std::string_view text);

// Follows each match of RegexCollect.
inline constexpr std::string_view kMatchEnd = "{tornelk}";

// All matches in order, each followed by kMatchEnd; case is ignored. Empty when there is none, or
// the search is given up (see app/Regex.h).
std::string RegexCollect(std::string_view pattern, std::string_view text);

// The text with all matches replaced, case ignored; unchanged when there is none, or the search is
// given up.
std::string RegexReplace(std::string_view pattern, std::string_view text,
                         std::string_view replacement);

// A page without its line ends (carriage return and line feed) and blanks.
std::string WithoutBlanks(std::string_view page);

// A value of a page as messages quote it: its first characters.
std::string Excerpt(std::string_view value);

}  // namespace ssq
