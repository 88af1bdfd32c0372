#include "acquire/getWWW.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <memory>

#include "base/Regex.h"
#include "base/text.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

// Whether a header or a tag, in lower case, names UTF-8 as its charset.
bool NamesUtf8(std::string_view declaration) {
    constexpr std::string_view kKey = "charset=";
    constexpr std::string_view kName = "utf-8";
    const auto key = declaration.find(kKey);
    if (key == std::string_view::npos) return false;
    const auto name = declaration.find_first_not_of("\"' ", key + kKey.size());
    return name != std::string_view::npos && declaration.substr(name, kName.size()) == kName;
}

// Whether the page says that it is UTF-8, in its header or near its start.
bool DeclaresUtf8(std::string_view body, std::string_view contentType) {
    constexpr std::size_t kDeclarationLies = 4096;  // bytes from the start
    if (NamesUtf8(LowerCase(contentType))) return true;
    const std::string start = LowerCase(body.substr(0, kDeclarationLies));
    for (std::size_t at = start.find("<meta"); at != std::string::npos;
         at = start.find("<meta", at + 1)) {
        if (NamesUtf8(start.substr(at, start.find('>', at) - at))) return true;
    }
    return false;
}

// Converts to UTF-8; what is no character of `charset` becomes U+FFFD, byte by byte, and is
// counted in `faults`.
std::string Convert(const char* charset, std::string_view bytes, std::size_t& faults) {
    const iconv_t raw = iconv_open("UTF-8", charset);
    if (reinterpret_cast<std::intptr_t>(raw) == -1) return {};
    const std::unique_ptr<void, decltype(&iconv_close)> converter(raw, &iconv_close);
    std::string text;
    std::array<char, 8192> buffer{};
    char* in = const_cast<char*>(bytes.data());  // iconv only reads it
    std::size_t left = bytes.size();
    while (left > 0) {
        char* out = buffer.data();
        std::size_t room = buffer.size();
        const std::size_t done = iconv(raw, &in, &left, &out, &room);
        const int error = errno;
        text.append(buffer.data(), out);
        if (done == static_cast<std::size_t>(-1) && error != E2BIG) {
            text += kReplacement;
            ++faults;
            ++in;
            --left;
        }
    }
    return text;
}

}  // namespace

std::string DecodePage(std::string_view body, std::string_view contentType) {
    std::size_t faults = 0;
    if (DeclaresUtf8(body, contentType)) {
        std::string text = Convert("UTF-8", body, faults);
        if (faults == 0) return text;
    }
    return Convert("GB18030", body, faults);
}

std::string CutBetween(Host& host, std::string_view startMark, std::string_view endMark,
                       std::string_view text) {
    const std::size_t start = text.find(startMark);
    std::size_t p = 0;
    std::size_t q = 0;
    if (start != std::string_view::npos) {
        const std::size_t from = start + startMark.size();
        const std::size_t end = text.find(endMark, from);
        if (end != std::string_view::npos && end > from) {
            return std::string(text.substr(from, end - from));
        }
        p = CharacterCount(text.substr(0, from)) + 1;
        if (end != std::string_view::npos) q = p;
    }
    host.ShowBox("", std::string(text) + "错误!开始标记位置为:" + std::to_string(p) +
                         "结束标志位置为:" + std::to_string(q));
    return {};
}

std::string RegexCollect(std::string_view pattern, std::string_view text) {
    std::string collected;
    const auto matches = Regex(pattern).FindAll(text);
    if (!matches) return collected;
    for (const std::string& match : *matches) collected.append(match).append(kMatchEnd);
    return collected;
}

std::string RegexReplace(std::string_view pattern, std::string_view text,
                         std::string_view replacement) {
    return Regex(pattern).Replace(text, replacement).value_or(std::string(text));
}

std::string WithoutBlanks(std::string_view page) {
    return Replace(Replace(page, "\r\n", ""), " ", "");
}

std::string Excerpt(std::string_view value) {
    constexpr std::size_t kLongest = 40;
    std::string start = Characters(value, 1, kLongest);
    return start.size() < value.size() ? start + "…" : start;
}

}  // namespace ssq
