// How well the edge codes of an earlier draw, its reds shifted by an offset, caught a draw's reds.
#pragma once

#include <optional>

#include "draws/public_fun.h"
#include "formulas/BMHZ.h"
#include "ui/ColumnTable.h"

namespace ssq {

enum class EdgeView {
    kDetail,    // the shifted numbers of one source and one offset
    kBySource,  // hits of all ten sources at one offset
    kByOffset,  // hits of all thirteen offsets of one source
};

struct EdgeRequest {
    PeriodRange range;
    EdgeView view = EdgeView::kDetail;
    int q = 1;  // how many draws back the source lies; unused in kBySource
    int b = 1;  // the offset, 0 to 32; unused in kByOffset
    ShiftMode mode = ShiftMode::kBoth;
    bool drawnOrder = false;  // the detail shows the draws in drawn order
};

// One row for each draw of the range and one of rates; the detail has the edge codes for the next
// draw, too. Nothing after a box: "期号填写错误！", "数据不足！" when the range is empty or too few
// draws precede it, or the store's error text.
std::optional<GridReport> BuildEdgeCodes(Session& session, const EdgeRequest& request);

}  // namespace ssq
