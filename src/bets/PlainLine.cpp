#include "bets/PlainLine.h"

namespace ssq {

namespace {

constexpr std::string_view kTight = "~,/:=<>";

// Signs with one meaning; full-width forms have become ASCII before.
constexpr std::pair<std::string_view, std::string_view> kPlainForms[] = {
    {";", ","},       {"、", ","},      {"\u2236", ":"},                     // ratio
    {"-", "~"},       {"至", "~"},      {"到", "~"},                         //
    {"\u2010", "~"},  {"\u2011", "~"},  {"\u2012", "~"},                     // hyphens
    {"\u2013", "~"},  {"\u2014", "~"},  {"\u2015", "~"},                     // dashes
    {"\u2212", "~"},  {"\u223C", "~"},  {"\u301C", "~"},                     // minus, waves
    {"\u2265", ">="}, {"\u2267", ">="}, {"\u2264", "<="}, {"\u2266", "<="},  //
    {"\t", " "},      {"\u00A0", " "},  {"\u3000", " "},                     // blanks
    {"\u200B", ""},   {"\uFEFF", ""},                                        // no width
};

std::size_t CharacterEnd(std::string_view text, std::size_t begin) {
    std::size_t end = begin + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) ++end;
    return end;
}

// U+FF01 to U+FF5E stand for ! to ~: EF BC 81 to EF BD 9E. 0 for any other character.
char AsciiOfFullWidth(std::string_view character) {
    if (character.size() != 3 || character[0] != '\xEF') return 0;
    const unsigned second = static_cast<unsigned char>(character[1]);
    const unsigned third = static_cast<unsigned char>(character[2]);
    const unsigned offset = (second - 0xBCU) * 64U + (third - 0x80U);  // from U+FF00
    return second >= 0xBCU && offset >= 0x01U && offset <= 0x5EU ? static_cast<char>(' ' + offset)
                                                                 : '\0';
}

}  // namespace

PlainLine::PlainLine(std::string_view line) : source_(line) {
    for (std::size_t begin = 0, end = 0; begin < line.size(); begin = end) {
        end = CharacterEnd(line, begin);
        std::string_view plain = line.substr(begin, end - begin);
        const char ascii = AsciiOfFullWidth(plain);
        if (ascii != '\0') plain = std::string_view(&ascii, 1);
        if (plain == "#") break;
        for (const auto& [form, meaning] : kPlainForms) {
            if (plain == form) {
                plain = meaning;
                break;
            }
        }
        Append(plain, begin, end);
    }
}

void PlainLine::Append(std::string_view plain, std::size_t begin, std::size_t end) {
    if (plain == " ") {
        blank_ = !text_.empty();
        return;
    }
    for (const char c : plain) {
        const bool tight = kTight.find(c) != std::string_view::npos;
        if (blank_ && !tight && kTight.find(text_.back()) == std::string_view::npos) {
            text_ += ' ';
            places_.emplace_back(begin, begin);
        }
        blank_ = false;
        if (c == '~' && !text_.empty() && text_.back() == '~') continue;
        text_ += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        places_.emplace_back(begin, end);
    }
}

std::string PlainLine::Typed(std::string_view part) const {
    if (part.empty()) return {};
    const auto first = static_cast<std::size_t>(part.data() - text_.data());
    const std::size_t begin = places_[first].first;
    return std::string(source_.substr(begin, places_[first + part.size() - 1].second - begin));
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    for (;;) {
        const std::size_t end = text.find_first_of("\r\n");
        lines.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
    }
}

}  // namespace ssq
