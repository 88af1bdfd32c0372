// The walk of a blind test over the draws.
#pragma once

#include <optional>

#include "trial/BlindTest.h"
#include "trial/History.h"

namespace ssq {

// Predicts the newest draws one after the other, and the one behind them, judges and sums up; with
// lines, grid and caption. For settings without fault and at least one draw. Nothing when the run
// was ended.
std::optional<TrialResult> WalkForward(const History& history, const TrialSettings& settings,
                                       Run& run);

}  // namespace ssq
