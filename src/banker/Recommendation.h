// The banker recommendation: the three best formulas applied to every draw of a range and to the
// next issue.
#pragma once

#include <optional>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

// With the formulas in trate, which must have `dmgs` positions; nothing after telling the user
// why not.
std::optional<GridReport> BuildBankerRecommendation(Session& session, const PeriodRange& range,
                                                    int dmgs);

}  // namespace ssq
