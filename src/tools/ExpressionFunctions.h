// The functions of the formula language.
#pragma once

#include <span>
#include <string_view>

#include "tools/ExpressionValue.h"

namespace ssq {

inline constexpr std::size_t kMostArguments = 6;

struct ExpressionFunction {
    std::string_view name;  // in lower case
    std::size_t fewest;     // arguments it takes
    std::size_t most;
    ExpressionValue (*apply)(std::span<const ExpressionValue> arguments);
};

// By name in lower case; null when there is none.
const ExpressionFunction* FindExpressionFunction(std::string_view name);

}  // namespace ssq
