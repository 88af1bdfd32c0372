// The operators of the formula language.
#pragma once

#include <cstdint>

#include "tools/ExpressionValue.h"

namespace ssq {

enum class ExpressionOperator : std::uint8_t {
    kPower,
    kMultiply,
    kDivide,
    kDivideWhole,
    kMod,
    kPlus,
    kMinus,
    kConcatenate,
    kEqual,
    kNotEqual,
    kLess,
    kLessEqual,
    kGreater,
    kGreaterEqual,
    kNot,
    kAnd,
    kOr,
    kXor,
    kEqv,
    kImp,
};

ExpressionValue Negate(const ExpressionValue& operand);
ExpressionValue Not(const ExpressionValue& operand);

// Any operator but kNot.
ExpressionValue ApplyOperator(ExpressionOperator op, const ExpressionValue& left,
                              const ExpressionValue& right);

}  // namespace ssq
