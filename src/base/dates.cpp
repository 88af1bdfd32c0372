#include "base/dates.h"

#include <array>
#include <charconv>
#include <ctime>

#include "base/text.h"

namespace ssq {

namespace {

// A part of a date: digits only, at most `longest` of them. Empty when it is not.
std::optional<int> ParsePart(const std::string& part, std::size_t longest) {
    if (part.empty() || part.size() > longest) return std::nullopt;
    int value = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), value);
    if (error != std::errc{} || end != part.data() + part.size() || value < 0) return std::nullopt;
    return value;
}

}  // namespace

std::optional<Date> ParseDate(std::string_view text) {
    const std::string trimmed = Trim(text);
    const std::string day = trimmed.substr(0, trimmed.find(' '));
    const std::vector<std::string> parts = Split(Replace(day, "/", "-"), "-");
    if (parts.size() != 3) return std::nullopt;
    const auto y = ParsePart(parts[0], 4);
    const auto m = ParsePart(parts[1], 2);
    const auto d = ParsePart(parts[2], 2);
    if (!y || !m || !d || parts[0].size() != 4) return std::nullopt;
    const Date date{std::chrono::year{*y}, std::chrono::month{static_cast<unsigned>(*m)},
                    std::chrono::day{static_cast<unsigned>(*d)}};
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::string DateText(const Date& date) {
    std::string year = std::to_string(static_cast<int>(date.year()));
    year.insert(0, year.size() < 4 ? 4 - year.size() : 0, '0');
    return year + "-" + TwoDigits(static_cast<unsigned>(date.month())) + "-" +
           TwoDigits(static_cast<unsigned>(date.day()));
}

int Weekday(const Date& date) {
    return static_cast<int>(std::chrono::weekday{std::chrono::sys_days{date}}.c_encoding()) + 1;
}

Date AddDays(const Date& date, int days) {
    return Date{std::chrono::sys_days{date} + std::chrono::days{days}};
}

Date Today() {
    return *ParseDate(NowText());
}

std::string NowText() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 32> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    return {text.data(), length};
}

}  // namespace ssq
