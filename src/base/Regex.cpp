#include "base/Regex.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <chrono>

namespace ssq {

namespace {

using CompileContext =
    std::unique_ptr<pcre2_compile_context, decltype(&pcre2_compile_context_free)>;
using MatchContext = std::unique_ptr<pcre2_match_context, decltype(&pcre2_match_context_free)>;
using MatchData = std::unique_ptr<pcre2_match_data, decltype(&pcre2_match_data_free)>;

// The page patterns need some 100,000 steps on a page of usual size; this many take about 50 ms.
constexpr std::uint32_t kStepsPerMatch = 1'000'000;
constexpr std::uint32_t kHeapKib = 65'536;
constexpr std::chrono::seconds kLongestSearch{5};

// A group of the last match; a group that took no part is empty.
std::string_view Group(std::string_view text, const std::size_t* offsets, std::size_t group) {
    const std::size_t start = offsets[2 * group];
    const std::size_t end = offsets[2 * group + 1];
    if (start == PCRE2_UNSET || start > end) return {};
    return text.substr(start, end - start);
}

std::size_t NextCharacter(std::string_view text, std::size_t at) {
    ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U) ++at;
    return at;
}

void AppendReplacement(std::string& result, std::string_view replacement,
                       const std::vector<std::string_view>& groups) {
    for (std::size_t i = 0; i < replacement.size(); ++i) {
        const char next = i + 1 < replacement.size() ? replacement[i + 1] : '\0';
        const auto group = static_cast<std::size_t>(next - '0');
        if (replacement[i] != '$') {
            result += replacement[i];
        } else if (next == '$') {
            result += '$';
            ++i;
        } else if (next == '&') {
            result += groups[0];
            ++i;
        } else if (next >= '1' && next <= '9' && group < groups.size()) {
            result += groups[group];
            ++i;
        } else {
            result += '$';
        }
    }
}

}  // namespace

void Regex::Deleter::operator()(pcre2_real_code_8* code) const {
    pcre2_code_free(code);
}

Regex::Regex(std::string_view pattern) {
    const CompileContext context(pcre2_compile_context_create(nullptr),
                                 &pcre2_compile_context_free);
    pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);
    constexpr std::uint32_t kOptions = PCRE2_UTF | PCRE2_CASELESS | PCRE2_DOLLAR_ENDONLY |
                                       PCRE2_ALT_BSUX | PCRE2_ALLOW_EMPTY_CLASS |
                                       PCRE2_MATCH_UNSET_BACKREF | PCRE2_NEVER_BACKSLASH_C;
    int error = 0;
    std::size_t offset = 0;
    code_.reset(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(),
                              kOptions, &error, &offset, context.get()));
}

template <typename Visit>
bool Regex::Walk(std::string_view text, Visit visit) const {
    if (!valid()) return false;
    const MatchContext context(pcre2_match_context_create(nullptr), &pcre2_match_context_free);
    pcre2_set_match_limit(context.get(), kStepsPerMatch);
    pcre2_set_heap_limit(context.get(), kHeapKib);
    const MatchData match(pcre2_match_data_create_from_pattern(code_.get(), nullptr),
                          &pcre2_match_data_free);
    const std::size_t* offsets = pcre2_get_ovector_pointer(match.get());
    const auto deadline = std::chrono::steady_clock::now() + kLongestSearch;
    std::vector<std::string_view> groups(pcre2_get_ovector_count(match.get()));
    std::uint32_t options = 0;
    for (std::size_t start = 0; start <= text.size();) {
        const int found = pcre2_match(code_.get(), reinterpret_cast<PCRE2_SPTR>(text.data()),
                                      text.size(), start, options, match.get(), context.get());
        if (found == PCRE2_ERROR_NOMATCH) return true;
        if (found < 0 || std::chrono::steady_clock::now() > deadline) return false;
        options = PCRE2_NO_UTF_CHECK;  // the first search has looked at the whole text
        for (std::size_t i = 0; i < groups.size(); ++i) groups[i] = Group(text, offsets, i);
        visit(groups);
        start = offsets[1] > offsets[0] ? offsets[1] : NextCharacter(text, offsets[1]);
    }
    return true;
}

std::optional<std::vector<std::string>> Regex::FindAll(std::string_view text) const {
    std::vector<std::string> matches;
    const bool done = Walk(text, [&](const auto& groups) { matches.emplace_back(groups[0]); });
    return done ? std::optional(std::move(matches)) : std::nullopt;
}

std::optional<std::size_t> Regex::Count(std::string_view text) const {
    std::size_t count = 0;
    return Walk(text, [&](const auto&) { ++count; }) ? std::optional(count) : std::nullopt;
}

std::optional<std::string> Regex::Replace(std::string_view text,
                                          std::string_view replacement) const {
    std::string result;
    const char* copied = text.data();
    const bool done = Walk(text, [&](const std::vector<std::string_view>& groups) {
        result.append(copied, groups[0].data());
        AppendReplacement(result, replacement, groups);
        copied = groups[0].data() + groups[0].size();
    });
    if (!done) return std::nullopt;
    return result.append(copied, text.data() + text.size());
}

int RegexCount(std::string_view pattern, std::string_view text) {
    return static_cast<int>(Regex(pattern).Count(text).value_or(0));
}

}  // namespace ssq
