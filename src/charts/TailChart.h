// The tail-digit chart: what the last digits of each draw's six reds are and how they move.
#pragma once

#include <optional>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

// One row per draw of the range and three rows of rates, which show "-" over no draw. A reversed
// range has no draws. Nothing on a failed query or a malformed issue, which the user is told.
std::optional<GridReport> BuildTailChart(Session& session, const PeriodRange& range);

}  // namespace ssq
