// What the choice of the best shows where there is nothing to find.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "trial/BlindTest.h"
#include "trial/WalkForward.h"

namespace ssq {

inline constexpr int kLuckHistories = 200;  // each a step

// Whether the method chooses the best of many, so that there is luck to speak of.
bool ChoosesBest(const TrialMethod& method);

// The luck of a method that ChoosesBest on random histories, always the same ones, as long as those
// it learns on: `before` tells for each judged draw, one at least, how many draws stand before it.
// Nothing when the run was ended.
std::optional<Luck> LuckOf(const TrialMethod& settings, std::span<const std::size_t> before,
                           TrialProgress& progress);

}  // namespace ssq
