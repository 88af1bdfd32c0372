// What the choice of the best shows where there is nothing to find.
#pragma once

#include <cstddef>
#include <optional>

#include "trial/BlindTest.h"
#include "trial/WalkForward.h"

namespace ssq {

inline constexpr int kLuckHistories = 200;  // each a step

// LuckOf as part of a run.
std::optional<Luck> LuckOf(const TrialMethod& settings, std::size_t draws, TrialProgress& progress);

}  // namespace ssq
