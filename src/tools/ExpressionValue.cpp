#include "tools/ExpressionValue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"

namespace ssq {

namespace {

constexpr const char* kOverflow = "数值溢出";

// Digits of a number that its text shows: "the 15 most significant digits" of a Double.
constexpr int kTextDigits = 15;

struct Decimal {
    std::string digits;  // without zeros at the end
    int exponent = 0;    // of the first digit
};

Decimal Decompose(double size) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), size,
                                   std::chars_format::scientific, kTextDigits - 1)
                         .ptr;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const auto mark = text.find('e');
    Decimal decimal{text[0] + std::string(text.substr(2, mark - 2)), 0};
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    const auto exponent = text.substr(mark + (text[mark + 1] == '+' ? 2 : 1));
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
    return decimal;
}

std::string Scientific(const Decimal& decimal) {
    const std::string rest = decimal.digits.substr(1);
    return decimal.digits.substr(0, 1) + (rest.empty() ? "" : "." + rest) +
           (decimal.exponent < 0 ? "E-" : "E+") + TwoDigits(std::abs(decimal.exponent));
}

std::string NumberToText(double value) {
    if (value == 0) return "0";
    const std::string sign = value < 0 ? "-" : "";
    const Decimal decimal = Decompose(std::fabs(value));
    const int count = static_cast<int>(decimal.digits.size());
    const int whole = decimal.exponent + 1;  // digits before the point
    if (whole > kTextDigits || count - whole > kTextDigits) return sign + Scientific(decimal);
    if (whole <= 0) {
        return sign + "0." + std::string(static_cast<std::size_t>(-whole), '0') + decimal.digits;
    }
    if (count <= whole) {
        return sign + decimal.digits + std::string(static_cast<std::size_t>(whole - count), '0');
    }
    const auto point = static_cast<std::size_t>(whole);
    return sign + decimal.digits.substr(0, point) + "." + decimal.digits.substr(point);
}

}  // namespace

double ToNumber(const ExpressionValue& value) {
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
    if (IsEmpty(value)) return 0;
    const auto& text = std::get<std::string>(value);
    if (const auto number = ParseNumber(text)) return *number;
    constexpr std::size_t kQuoted = 20;
    throw ExpressionFault{"这里需要数字，文字“" + Characters(text, 1, kQuoted) + "”不是数字"};
}

std::int32_t ToWhole(const ExpressionValue& value, std::int32_t lowest, std::int32_t highest) {
    const double whole = std::nearbyint(ToNumber(value));
    if (whole < lowest || whole > highest) throw ExpressionFault{kOverflow};
    return static_cast<std::int32_t>(whole);
}

std::string ToText(const ExpressionValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
    if (IsEmpty(value)) return {};
    return NumberToText(std::get<double>(value));
}

double Finite(double value) {
    if (!std::isfinite(value)) throw ExpressionFault{kOverflow};
    return value;
}

void RequireLength(std::size_t bytes) {
    if (bytes > kLongestExpressionText) throw ExpressionFault{"文字太长"};
}

}  // namespace ssq
