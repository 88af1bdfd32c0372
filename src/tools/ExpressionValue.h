// The values of the formula language and how they turn into each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace ssq {

// Empty, Boolean, number or UTF-8 text.
using ExpressionValue = std::variant<std::monostate, bool, double, std::string>;

inline constexpr std::size_t kLongestExpressionText = 4096;  // bytes of a text within a formula

// What ends an evaluation; EvaluateExpression turns it into its error.
struct ExpressionFault {
    std::string reason;
};

inline bool IsEmpty(const ExpressionValue& value) {
    return std::holds_alternative<std::monostate>(value);
}
inline bool IsText(const ExpressionValue& value) {
    return std::holds_alternative<std::string>(value);
}
inline bool IsBoolean(const ExpressionValue& value) {
    return std::holds_alternative<bool>(value);
}

// Empty is 0, True is -1, a text is its number; a fault when it is none.
double ToNumber(const ExpressionValue& value);

// ToNumber rounded to a whole number, halves to even; a fault outside [lowest, highest].
std::int32_t ToWhole(const ExpressionValue& value, std::int32_t lowest = INT32_MIN,
                     std::int32_t highest = INT32_MAX);

// Empty is an empty text, a number has up to 15 digits, and an exponent ("1E+15") where it would
// not fit in 15 places before or behind the point.
std::string ToText(const ExpressionValue& value);

// The number; a fault when a calculation left the range of double precision.
double Finite(double value);

// A fault when a text would have more bytes than a formula may hold.
void RequireLength(std::size_t bytes);

}  // namespace ssq
