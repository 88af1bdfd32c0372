#include "tools/ExpressionOperators.h"

#include <cmath>
#include <compare>

namespace ssq {

namespace {

using enum ExpressionOperator;
using Value = ExpressionValue;

[[noreturn]] void RefuseZero() {
    throw ExpressionFault{"除数为零"};
}

double Power(double base, double exponent) {
    if (base == 0 && exponent < 0) RefuseZero();
    // Per the language reference a negative number has whole powers only.
    if (base < 0 && exponent != std::trunc(exponent)) {
        throw ExpressionFault{"负数的指数必须是整数"};
    }
    return std::pow(base, exponent);
}

// Per the language reference both operands of \ and mod are rounded to whole numbers of 32 bits
// first; the remainder has the sign of the dividend. Computed in 64 bits, where the smallest
// number can be divided by -1.
struct WholeDivision {
    std::int64_t dividend;
    std::int64_t divisor;
};

WholeDivision ToWholeDivision(const Value& left, const Value& right) {
    const WholeDivision division{ToWhole(left), ToWhole(right)};
    if (division.divisor == 0) RefuseZero();
    return division;
}

double DivideWhole(const Value& left, const Value& right) {
    const auto [dividend, divisor] = ToWholeDivision(left, right);
    const std::int64_t quotient = dividend / divisor;
    return ToWhole(static_cast<double>(quotient));
}

double Remainder(const Value& left, const Value& right) {
    const auto [dividend, divisor] = ToWholeDivision(left, right);
    return static_cast<double>(dividend % divisor);
}

double Divide(double left, double right) {
    if (right == 0) RefuseZero();
    return Finite(left / right);
}

Value Joined(const std::string& left, const std::string& right) {
    RequireLength(left.size() + right.size());
    return left + right;
}

// Per the language reference: two texts are joined, an Empty leaves the other operand unchanged
// (two of them give 0), and everything else is added.
Value Plus(const Value& left, const Value& right) {
    if (IsText(left) && IsText(right)) {
        return Joined(std::get<std::string>(left), std::get<std::string>(right));
    }
    if (IsEmpty(left) && IsEmpty(right)) return 0.0;
    if (IsEmpty(left)) return right;
    if (IsEmpty(right)) return left;
    return Finite(ToNumber(left) + ToNumber(right));
}

// Per the table of comparisons in the language reference: two texts compare as texts; an Empty is
// an empty text beside a text and 0 beside a number; a number is less than any text.
std::strong_ordering Compare(const Value& left, const Value& right) {
    const bool leftIsText = IsText(left) || (IsEmpty(left) && IsText(right));
    const bool rightIsText = IsText(right) || (IsEmpty(right) && IsText(left));
    if (leftIsText && rightIsText) return ToText(left) <=> ToText(right);
    if (leftIsText != rightIsText) return leftIsText <=> rightIsText;
    const double a = ToNumber(left);
    const double b = ToNumber(right);
    return (a > b) <=> (a < b);
}

// Bit by bit on whole numbers; Booleans stay Booleans when both operands are.
template <typename Combine>
Value Bitwise(const Value& left, const Value& right, Combine combine) {
    const std::int32_t bits = combine(ToWhole(left), ToWhole(right));
    if (IsBoolean(left) && IsBoolean(right)) return bits != 0;
    return static_cast<double>(bits);
}

}  // namespace

Value Negate(const Value& operand) {
    return 0 - ToNumber(operand);
}

Value Not(const Value& operand) {
    if (const auto* truth = std::get_if<bool>(&operand)) return !*truth;
    return static_cast<double>(~ToWhole(operand));
}

Value ApplyOperator(ExpressionOperator op, const Value& left, const Value& right) {
    using Bits = std::int32_t;
    switch (op) {
        case kPower:
            return Finite(Power(ToNumber(left), ToNumber(right)));
        case kMultiply:
            return Finite(ToNumber(left) * ToNumber(right));
        case kDivide:
            return Divide(ToNumber(left), ToNumber(right));
        case kDivideWhole:
            return DivideWhole(left, right);
        case kMod:
            return Remainder(left, right);
        case kPlus:
            return Plus(left, right);
        case kMinus:
            return Finite(ToNumber(left) - ToNumber(right));
        case kConcatenate:
            return Joined(ToText(left), ToText(right));
        case kEqual:
            return Compare(left, right) == 0;
        case kNotEqual:
            return Compare(left, right) != 0;
        case kLess:
            return Compare(left, right) < 0;
        case kLessEqual:
            return Compare(left, right) <= 0;
        case kGreater:
            return Compare(left, right) > 0;
        case kGreaterEqual:
            return Compare(left, right) >= 0;
        case kAnd:
            return Bitwise(left, right, [](Bits a, Bits b) { return a & b; });
        case kOr:
            return Bitwise(left, right, [](Bits a, Bits b) { return a | b; });
        case kXor:
            return Bitwise(left, right, [](Bits a, Bits b) { return a ^ b; });
        case kEqv:
            return Bitwise(left, right, [](Bits a, Bits b) { return ~(a ^ b); });
        case kImp:
            return Bitwise(left, right, [](Bits a, Bits b) { return ~a | b; });
        case kNot:
            break;
    }
    return Not(right);
}

}  // namespace ssq
