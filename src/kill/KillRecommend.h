// What the learned set of formulas would have killed on each draw of a period, and what it kills
// for the next issue.
#pragma once

#include <string>

#include "draws/public_fun.h"
#include "formulas/BMHZ.h"
#include "ui/ResultGrid.h"

namespace ssq {

struct KillRecommendation {
    ResultGrid grid;
    std::string caption;
};

// The kill numbers for one draw as comma text: for each formula of `formulaText` ("Q,B|Q,B")
// the six lowered numbers of the Q-th earlier draw. Empty after showing "条件错误！" (no formula)
// or "数据不足！" (fewer than ten earlier draws).
std::string KillPredictRow(Session& session, const std::string& formulaText,
                           const EarlierDraws& earlier, const std::string& targetDraw);

// Applies the set stored in tDs to the draws of the period. False when it could not; the user has
// been told and `result` is untouched.
bool KillRecommend(Session& session, const PeriodRange& range, KillRecommendation& result);

}  // namespace ssq
