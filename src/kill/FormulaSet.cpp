#include "kill/FormulaSet.h"

#include "base/numbers.h"
#include "formulas/BMHZ.h"

namespace ssq {

std::optional<FormulaSet> ParseFormulaSet(std::string_view text) {
    return ParseNumberList(text, 0, kFormulaCount - 1);
}

std::vector<int> KillNumbers(std::span<const int> formulas, std::span<const DrawBalls> before) {
    std::vector<int> numbers;
    numbers.reserve(formulas.size() * kRedsInDraw);
    for (const int index : formulas) {
        const ShiftFormula formula = FormulaAt(index);
        for (const int ball : before[static_cast<std::size_t>(formula.q - 1)]) {
            numbers.push_back(LoweredInRing(ball, formula.b));
        }
    }
    return numbers;
}

}  // namespace ssq
