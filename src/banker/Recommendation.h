// The banker recommendation: the three best formulas applied to every draw of a range and to the
// next issue.
#pragma once

#include <string>

#include "draws/public_fun.h"
#include "ui/ResultGrid.h"

namespace ssq {

struct Session;

struct BankerRecommendation {
    ResultGrid grid;
    std::string caption;  // of the group around the grid
};

// What the status bar says of the learning settings.
std::string LearningModeText(Session& session);

// False when it did not get to its end; what there was to say has been shown and `result` is
// untouched.
bool RecommendBankers(Session& session, const PeriodRange& range, BankerRecommendation& result);

}  // namespace ssq
