#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "base/text.h"

namespace ssq {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Length of the number that starts the text, 0 when none does. With `groups` commas may stand
// between the digits before the decimal point.
std::size_t NumberLength(std::string_view text, bool groups) {
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    std::size_t digits = 0;
    for (; at < text.size(); ++at) {
        if (IsDigit(text[at])) {
            ++digits;
        } else if (!(groups && text[at] == ',' && digits > 0)) {
            break;
        }
    }
    if (at < text.size() && text[at] == '.') {
        const std::size_t point = at++;
        while (at < text.size() && IsDigit(text[at])) ++at;
        digits += at - point - 1;
    }
    if (digits == 0) return 0;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
        const std::size_t firstDigit = exponent;
        while (exponent < text.size() && IsDigit(text[exponent])) ++exponent;
        if (exponent > firstDigit) at = exponent;
    }
    return at;
}

// The value of a text of the form above; infinite beyond the range of a double, 0 for an empty one.
double ToDouble(std::string_view number) {
    if (!number.empty() && number.front() == '+') number.remove_prefix(1);
    double value = 0;
    const auto [end, fault] = std::from_chars(number.data(), number.data() + number.size(), value);
    // from_chars tells "too large" and "too small" alike.
    if (fault == std::errc::result_out_of_range)
        return std::strtod(std::string(number).c_str(), nullptr);
    return value;
}

}  // namespace

double Val(std::string_view text) {
    std::string packed;
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n') packed += c;
    }
    const double value = ToDouble(std::string_view(packed).substr(0, NumberLength(packed, false)));
    return std::isfinite(value) ? value : 0;
}

std::optional<double> ParseNumber(std::string_view text) {
    const std::string trimmed = Trim(text);
    if (trimmed.empty() || NumberLength(trimmed, true) != trimmed.size()) return std::nullopt;
    const double value = ToDouble(Replace(trimmed, ",", ""));
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool IsNumeric(std::string_view text) {
    return ParseNumber(text).has_value();
}

std::int64_t WholePart(double value) {
    constexpr double kLimit = 9.2e18;
    if (std::isnan(value)) return 0;
    if (value >= kLimit) return std::numeric_limits<std::int64_t>::max();
    if (value <= -kLimit) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

std::int64_t WholePart(std::string_view text) {
    return WholePart(ParseNumber(text).value_or(0));
}

int ToInt(std::int64_t value) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

std::vector<int> IntList(std::string_view list) {
    std::vector<int> numbers;
    for (const std::string& item : Split(list, ",")) numbers.push_back(ToInt(WholePart(Val(item))));
    return numbers;
}

std::string NumberListText(std::span<const int> numbers) {
    std::string text;
    for (const int number : numbers) {
        if (!text.empty()) text += ',';
        text += std::to_string(number);
    }
    return text;
}

std::optional<std::vector<int>> ParseNumberList(std::string_view text, int low, int high) {
    std::vector<int> numbers;
    for (const std::string& item : Split(text, ",")) {
        const auto value = ParseNumber(item);
        if (!value || *value < low || *value > high || *value != std::trunc(*value)) {
            return std::nullopt;
        }
        numbers.push_back(static_cast<int>(*value));
    }
    if (numbers.empty()) return std::nullopt;
    return numbers;
}

double Round(double value) {
    return std::nearbyint(value * 100) / 100;
}

double Percent(double part, double whole) {
    return Round(part / whole * 100);
}

std::string RateText(double part, double whole) {
    return NumberText(Percent(part, whole));
}

std::string NumberText(double value) {
    if (!std::isfinite(value)) return "-";
    if (value == 0) return "0";
    constexpr double kLargestPlain = 1e15;
    constexpr double kSmallestPlain = 1e-7;
    const double size = std::fabs(value);
    const auto form = size <= kLargestPlain && size >= kSmallestPlain ? std::chars_format::fixed
                                                                      : std::chars_format::general;
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form);
    return {buffer.data(), end.ptr};
}

}  // namespace ssq
