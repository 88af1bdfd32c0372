#include "base/text.h"

#include <algorithm>

namespace ssq {

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";

char LowerLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool StartsCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

// Byte offset of character number `index`, counted from 0; the size when the text is shorter.
std::size_t CharacterOffset(std::string_view text, std::size_t index) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (StartsCharacter(text[i]) && index-- == 0) return i;
    }
    return text.size();
}

}  // namespace

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    for (;;) {
        const auto at = separator.empty() ? std::string_view::npos : text.find(separator);
        parts.emplace_back(text.substr(0, at));
        if (at == std::string_view::npos) return parts;
        text.remove_prefix(at + separator.size());
    }
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) text += separator;
        text += parts[i];
    }
    return text;
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    return from.empty() ? std::string(text) : Join(Split(text, from), to);
}

std::string Trim(std::string_view text) {
    const auto first = text.find_first_not_of(kWhiteSpace);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1));
}

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerLetter);
    return lower;
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerLetter(x) == LowerLetter(y); });
}

std::size_t CharacterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::size_t DisplayWidth(std::string_view text) {
    const auto ascii = std::count_if(text.begin(), text.end(),
                                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return 2 * CharacterCount(text) - static_cast<std::size_t>(ascii);
}

std::string Characters(std::string_view text, std::size_t start, std::size_t count) {
    const std::string_view tail = text.substr(CharacterOffset(text, start - 1));
    return std::string(tail.substr(0, CharacterOffset(tail, count)));
}

std::string Excerpt(std::string_view value) {
    constexpr std::size_t kLongest = 40;
    std::string start = Characters(value, 1, kLongest);
    return start.size() < value.size() ? start + "…" : start;
}

std::string TwoDigits(long long value) {
    const auto bits = static_cast<unsigned long long>(value);
    const std::string digits = std::to_string(value < 0 ? 0 - bits : bits);
    return (value < 0 ? "-" : "") + std::string(digits.size() < 2 ? 2 - digits.size() : 0, '0') +
           digits;
}

}  // namespace ssq
