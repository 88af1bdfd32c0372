// A FormulaSet: FormulaIndex values of kill formulas, its text form, and the numbers it kills.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "draws/Draw.h"

namespace ssq {

using FormulaSet = std::vector<int>;

// Nothing for a text that is not one FormulaIndex or more, with commas between.
std::optional<FormulaSet> ParseFormulaSet(std::string_view text);

// The numbers that the formulas kill for the draw behind the draws `before` (newest first, at
// least ten): six to a formula, in the order of the draw that it lowers. Numbers can repeat.
std::vector<int> KillNumbers(std::span<const int> formulas, std::span<const DrawBalls> before);

}  // namespace ssq
