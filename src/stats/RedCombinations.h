// The gaps and sums of the reds at fixed positions of a draw, kept in two tables.
#pragma once

#include <optional>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

// The gaps between every two reds (how many numbers lie between them) and the sums of every two,
// three and four, one row for each draw of the range, with the share of draws that repeat the
// value of the draw before and of those with an odd value. The table is brought level with the
// draws when it lacks the newest one: that of the gaps is made anew, that of the sums gets the rows
// it lacks. Nothing after a box: "期号填写错误！" or the store's error text.
std::optional<GridReport> BuildGaps(Session& session, const PeriodRange& range);
std::optional<GridReport> BuildSums(Session& session, const PeriodRange& range);

}  // namespace ssq
