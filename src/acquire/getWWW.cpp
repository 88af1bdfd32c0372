#include "acquire/getWWW.h"

#include "base/Regex.h"
#include "base/charset.h"
#include "base/text.h"
#include "ui/Host.h"

namespace ssq {

namespace {

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

}  // namespace

std::string DecodePage(std::string_view body, std::string_view contentType) {
    std::size_t faults = 0;
    if (DeclaresUtf8(body, contentType)) {
        std::string text = DecodeUtf8(body, faults);
        if (faults == 0) return text;
    }
    return DecodeGbk(body, faults);
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

}  // namespace ssq
