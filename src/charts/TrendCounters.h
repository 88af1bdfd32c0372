// The 32 pattern counters of the main trend chart, in the order of its columns.
#pragma once

#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "base/RedSet.h"

namespace ssq {

struct TrendCounter {
    const char* heading;
    int leadRows = 0;    // rows at the start that its rate leaves out; given, not derived
    int commonUpTo = 0;  // the pattern occurs in a row whose count is above this
};

inline constexpr std::array<TrendCounter, 32> kTrendCounters{{
    {"跳1", 2},     {"跳2", 3},    {"跳3", 4},    {"边1", 1},   {"边2", 1},   {"边3", 1},
    {"横跳", 0},    {"重号", 1},   {"连号", 0},   {"对望", 0},  {"斜3", 3},   {"尾组", 0, 3},
    {"重尾", 1, 1}, {"红蓝", 0},   {"><", 2},     {"∨", 1},     {"∧", 1},     {"┌", 1},
    {"┐", 1},       {"1∨", 2},     {"2∨", 3},     {"菱形", 3},  {"重斜", 3},  {"连斜", 2},
    {"横跳斜", 2},  {"竖跳斜", 4}, {"隔期边", 2}, {"1等距", 1}, {"间距3", 0}, {"2等距", 0},
    {"间距5", 0},   {"01距", 0},
}};

using TrendCounts = std::array<int, kTrendCounters.size()>;

// What the counters need of a draw.
struct CountedDraw {
    std::vector<int> listed;  // the reds in the order of their list
    RedSet set;
    int blue = 0;
};

CountedDraw CountedDrawOf(std::string_view redList, int blue);

// The counts of row `row` of the chart, counted from 1 for the first draw of the series.
TrendCounts CountRow(std::span<const CountedDraw> draws, int row);

}  // namespace ssq
