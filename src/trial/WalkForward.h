// The walk of a blind test over the draws.
#pragma once

#include <cstddef>
#include <optional>

#include "trial/BlindTest.h"
#include "trial/History.h"
#include "ui/Run.h"

namespace ssq {

// The steps of a run, which may have several parts.
struct TrialProgress {
    Run& run;
    double total;
    double done = 0;

    // False when the run was ended.
    bool Step() { return run.SlowStep(done++, total); }
};

// How many of the newest draws are judged. Each is a step, and the one behind them.
std::size_t JudgedDraws(const History& history, const TrialSettings& settings);

// Predicts these and the one behind, one after the other, judges and sums up; without luck, lines
// and grid. For settings without fault and at least one draw. Nothing when the run was ended.
std::optional<TrialResult> WalkForward(const History& history, const TrialSettings& settings,
                                       TrialProgress& progress);

}  // namespace ssq
