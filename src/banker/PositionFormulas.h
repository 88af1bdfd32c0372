// Position formulas and learning them: pure, draws and settings in, formulas out.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "draws/BankerSettings.h"
#include "draws/Draw.h"

namespace ssq {

// Positions 0 to 23 in the balls of the four draws before a draw, newest draw first; ascending.
using PositionFormula = std::vector<int>;

// "0,7,13", and back; nothing for a text that is none of these or has more than five positions.
std::string FormulaText(const PositionFormula& formula);
std::optional<PositionFormula> ParseFormula(std::string_view text);

struct ScoredFormula {
    PositionFormula positions;
    double rate = 0;  // percent, two decimals; can exceed 100, see PositionRates
};

// The balls at the formula's positions, of the draws `before` (newest first, at least four).
std::vector<int> BallsAt(const PositionFormula& formula, std::span<const DrawBalls> before);

// Whether there are enough draws for settings that are in range.
bool CanLearn(std::span<const DrawBalls> before, const BankerSettings& settings);

// Told before each formula how many of all have been scored; false ends the learning.
using LearnStep = std::function<bool(double done, double total)>;

// Every formula of `dmgs` positions that reaches the threshold of its size on the newest xxqs + 1
// of the draws `before`, in dictionary order. Nothing when a step ended it. To be asked while
// CanLearn.
std::optional<std::vector<ScoredFormula>> GoodFormulas(std::span<const DrawBalls> before,
                                                       const BankerSettings& settings,
                                                       const LearnStep& step);

// The `count` formulas of the highest rates, those of equal rate in their order.
std::vector<ScoredFormula> BestOf(std::span<const ScoredFormula> formulas, int count);

// The rate that makes a formula of so many positions (1 to kMostBankers) good, percent.
double GoodRate(int dmgs);

// BestOf the GoodFormulas, fewer where not so many are good; none unless CanLearn.
std::vector<ScoredFormula> BestFormulas(std::span<const DrawBalls> before,
                                        const BankerSettings& settings, int count);

}  // namespace ssq
