// The best position formulas before each of many draws, in one walk over all formulas.
#pragma once

#include <span>
#include <vector>

#include "banker/PositionFormulas.h"

namespace ssq {

// Entry i holds the `count` formulas of the highest rates before the draws.subspan(i), whether good
// or not; those of equal rate in dictionary order. For the settings one must be able to learn
// (CanLearn) before each of the `views` subspans.
std::vector<std::vector<ScoredFormula>> HighestRates(std::span<const DrawBalls> draws,
                                                     std::size_t views,
                                                     const BankerSettings& settings, int count);

}  // namespace ssq
