// Reading web pages and cutting values out of their text.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ssq {

class Host;
class Run;

struct FetchOptions {
    std::chrono::milliseconds connectTimeout{10'000};
    std::chrono::milliseconds silence{30'000};        // between two pieces of the body
    std::chrono::milliseconds totalTime{300'000};     // of a page that keeps coming
    std::size_t largestBody = std::size_t{32} << 20;  // bytes; a first sales page has some millions
};

// What came over the wire.
struct FetchedBody {
    std::string bytes;
    std::string contentType;
};

// The body of a URL, read from the network and never from a cache. Redirects are followed on http
// and https. The windows show the wait cursor meanwhile and are painted; a run that is not wanted
// any more ends the fetch at once. On failure nothing, and in `fault` plain words in Chinese that
// name the host; no message is shown. The body of an error page is no body.
std::optional<FetchedBody> FetchBody(Run& run, const std::string& url, std::string& fault,
                                     const FetchOptions& options = {});

// The body of a page as UTF-8 text. The sites serve GBK; a page that declares UTF-8 and holds it is
// taken as that. Empty, with `fault` as above, when anything fails.
std::string FetchPage(Run& run, const std::string& url, std::string& fault,
                      const FetchOptions& options = {});

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

}  // namespace ssq
