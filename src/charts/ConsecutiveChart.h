// The consecutive-number chart: where a draw holds neighbouring numbers, and how long it had none.
#pragma once

#include <optional>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

// One row per draw of the range. A pair is shown by its lower number, so a run of three counts 2.
// Nothing on a failed query, a malformed issue or a range without draws ("无数据！"), which the
// user is told.
std::optional<GridReport> BuildConsecutiveChart(Session& session, const PeriodRange& range);

}  // namespace ssq
