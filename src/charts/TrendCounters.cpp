#include "charts/TrendCounters.h"

#include "base/numbers.h"
#include "charts/dapan_fx.h"

namespace ssq {

namespace {

using Rows = const TrendRows&;

template <std::size_t kStep>
int Skip(Rows r) {
    std::array<int, 3> skips{};
    CountSkips(r.cur, r.P1, r.P2, r.P3, r.P4, skips[0], skips[1], skips[2]);
    return skips[kStep - 1];
}

template <std::size_t kStep>
int Edge(Rows r) {
    std::array<int, 3> edges{};
    CountEdges(r.cur, r.prev, edges[0], edges[1], edges[2]);
    return edges[kStep - 1];
}

int RowSkip(Rows r) {
    int rowSkip = 0;
    int repeats = 0;
    CountRowSkipsAndRepeats(r.listed, r.prev, rowSkip, repeats);
    return rowSkip;
}

int Repeats(Rows r) {
    int rowSkip = 0;
    int repeats = 0;
    CountRowSkipsAndRepeats(r.listed, r.prev, rowSkip, repeats);
    return repeats;
}

int TailGroups(Rows r) {
    int groups = 0;
    CountTailGroups(r.cur, groups);
    return groups;
}

int RepeatTails(Rows r) {
    int repeatTails = 0;
    CountRepeatTails(r.cur, r.prev, repeatTails);
    return repeatTails;
}

}  // namespace

constexpr std::array<TrendCounter, 32> kTrendCounters{{
    {"跳1", Skip<1>, 2},
    {"跳2", Skip<2>, 3},
    {"跳3", Skip<3>, 4},
    {"边1", Edge<1>, 1},
    {"边2", Edge<2>, 1},
    {"边3", Edge<3>, 1},
    {"横跳", RowSkip},
    {"重号", Repeats, 1},
    {"连号", [](Rows r) { return CountGap1(r.listed); }},
    {"对望", [](Rows r) { return CountMirrorPairs(r.cur); }},
    {"斜3", [](Rows r) { return CountSlant3(r.cur, r.P1, r.P2); }, 3},
    {"尾组", TailGroups, 0, 3},
    {"重尾", RepeatTails, 1, 1},
    {"红蓝", [](Rows r) { return r.cur.Has(r.blue) ? 1 : 0; }},
    {"><", [](Rows r) { return CountCross(r.cur, r.P1, r.P2); }, 2},
    {"∨", [](Rows r) { return CountValley(r.cur, r.prev); }, 1},
    {"∧", [](Rows r) { return CountPeak(r.cur, r.prev); }, 1},
    {"┌", [](Rows r) { return CountCornerUp(r.cur, r.prev); }, 1},
    {"┐", [](Rows r) { return CountCornerDown(r.cur, r.prev); }, 1},
    {"1∨", [](Rows r) { return CountValleySkip1(r.cur, r.P1, r.P2); }, 2},
    {"2∨", [](Rows r) { return CountValleySkip2(r.cur, r.P1, r.P2, r.P3); }, 3},
    {"菱形", [](Rows r) { return CountDiamond(r.cur, r.P1, r.P2); }, 3},
    {"重斜", [](Rows r) { return CountDoubleSlant(r.cur, r.P1, r.P2); }, 3},
    {"连斜", [](Rows r) { return CountRunSlant(r.cur, r.P1); }, 2},
    {"横跳斜", [](Rows r) { return CountRowSkipSlant(r.cur, r.P1); }, 2},
    {"竖跳斜", [](Rows r) { return CountColumnSkipSlant(r.cur, r.P1, r.P2, r.P3); }, 4},
    {"隔期边", [](Rows r) { return CountAlternateEdge(r.cur, r.P1, r.P2); }, 2},
    {"1等距", [](Rows r) { return CountEquidistant(r.cur, r.P1, 2); }, 1},
    {"间距3", [](Rows r) { return CountSpacing(r.listed, 3); }},
    {"2等距", [](Rows r) { return CountEquidistant(r.cur, r.P1, 3); }},
    {"间距5", [](Rows r) { return CountSpacing(r.listed, 5); }},
    {"01距", [](Rows r) { return HasGapPattern(r.listed, "00,01"); }},
}};

TrendCounts CountRow(std::span<const Draw> draws, int row) {
    const auto above = [&](int back, int firstRow) {
        return row >= firstRow ? draws[static_cast<std::size_t>(row - back - 1)].set : RedSet();
    };
    const Draw& draw = draws[static_cast<std::size_t>(row - 1)];
    const std::vector<int> listed = IntList(draw.reds);
    const TrendRows rows{listed,      draw.set,    draw.blue,   above(1, 2),
                         above(1, 3), above(2, 3), above(3, 4), above(4, 5)};
    TrendCounts counts{};
    for (std::size_t i = 0; i < counts.size(); ++i) counts[i] = kTrendCounters[i].count(rows);
    return counts;
}

}  // namespace ssq
