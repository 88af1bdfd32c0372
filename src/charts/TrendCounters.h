// The 32 pattern counters of the main trend chart, in the order of its columns.
#pragma once

#include <array>
#include <span>

#include "base/RedSet.h"
#include "draws/Draw.h"

namespace ssq {

// A row of the chart and what its counters see of the rows above. A neighbour is empty in the rows
// before the one that is told, so that a counter that wants it counts nothing there.
struct TrendRows {
    std::span<const int> listed;  // the reds in the order of their list
    RedSet cur;
    int blue = 0;
    RedSet prev;  // one row above, from row 2 on
    RedSet P1;    // the same from row 3 on: P1 and P2 come together
    RedSet P2;    // two rows above, from row 3 on
    RedSet P3;    // three rows above, from row 4 on
    RedSet P4;    // four rows above, from row 5 on
};

struct TrendCounter {
    const char* heading;
    int (*count)(const TrendRows& rows);
    int leadRows = 0;    // rows at the start that its rate leaves out; given, not derived
    int commonUpTo = 0;  // the pattern occurs in a row whose count is above this
};

extern const std::array<TrendCounter, 32> kTrendCounters;

using TrendCounts = std::array<int, 32>;

// The counts of row `row` of the chart, counted from 1 for the first draw of the series.
TrendCounts CountRow(std::span<const Draw> draws, int row);

}  // namespace ssq
