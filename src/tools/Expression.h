// The language of the user's formulas: one expression over numbers and texts on one line, with the
// meaning that VBScript gives it. Limits keep every formula to a fraction of a millisecond.
//
//   values      numbers (double precision; 12, 1.5, 2E-3, &HFF, &O17), texts in double quotes (""
//   is
//               a quote in one), True, False, Empty; a name that is no function is Empty, which
//               counts as 0
//   operators   from the tightest:  ^   -x   * /   \   mod   + -   &   = <> < > <= >=   not   and
//               or   xor   eqv   imp;  equal ones group to the left
//   functions   int fix abs sgn sqr exp log sin cos tan atn round cint clng cdbl cstr hex oct len
//               left right mid instr replace strreverse trim ltrim rtrim asc chr string ucase
//               lcase isnumeric
//   comment     ' to the end of the line
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tools/ExpressionValue.h"

namespace ssq {

inline constexpr std::size_t kLongestExpression = 4096;  // bytes
inline constexpr int kDeepestExpression = 100;           // open parentheses and signs

struct ExpressionError {
    std::string reason;  // in Chinese, without a full stop
    std::size_t place;   // the character of the expression it was met at, counted from 1
};

struct ExpressionResult {
    ExpressionValue value;  // Empty after an error
    std::optional<ExpressionError> error;
};

ExpressionResult EvaluateExpression(std::string_view text);

}  // namespace ssq
