#include "charts/TrendCounters.h"

#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "charts/dapan_fx.h"

namespace ssq {

CountedDraw CountedDrawOf(std::string_view redList, int blue) {
    CountedDraw draw;
    draw.blue = blue;
    for (const std::string& item : Split(redList, ",")) {
        draw.listed.push_back(static_cast<int>(Val(item)));
        draw.set.Add(draw.listed.back());
    }
    return draw;
}

TrendCounts CountRow(std::span<const CountedDraw> draws, int row) {
    // A counter whose neighbours are still missing counts 0 on empty sets, so each starts by
    // itself in the row from which the chart wants it.
    // `back` rows above, but only from row `first` of the chart on.
    const auto above = [&](int back, int first) {
        return row >= first ? draws[static_cast<std::size_t>(row - back - 1)].set : RedSet();
    };
    const RedSet prev = above(1, 2);
    const RedSet P1 = above(1, 3);  // later than `prev`: P1 and P2 come together
    const RedSet P2 = above(2, 3);
    const RedSet P3 = above(3, 4);
    const RedSet P4 = above(4, 5);
    const CountedDraw& draw = draws[static_cast<std::size_t>(row - 1)];
    const RedSet cur = draw.set;

    TrendCounts n{};
    CountSkips(cur, P1, P2, P3, P4, n[0], n[1], n[2]);
    CountEdges(cur, prev, n[3], n[4], n[5]);
    CountRowSkipsAndRepeats(draw.listed, prev, n[6], n[7]);
    n[8] = CountGap1(draw.listed);
    n[9] = CountMirrorPairs(cur);
    n[10] = CountSlant3(cur, P1, P2);
    CountTailGroups(cur, n[11]);
    CountRepeatTails(cur, prev, n[12]);
    n[13] = cur.Has(draw.blue) ? 1 : 0;
    n[14] = CountCross(cur, P1, P2);
    n[15] = CountValley(cur, prev);
    n[16] = CountPeak(cur, prev);
    n[17] = CountCornerUp(cur, prev);
    n[18] = CountCornerDown(cur, prev);
    n[19] = CountValleySkip1(cur, P1, P2);
    n[20] = CountValleySkip2(cur, P1, P2, P3);
    n[21] = CountDiamond(cur, P1, P2);
    n[22] = CountDoubleSlant(cur, P1, P2);
    n[23] = CountRunSlant(cur, P1);
    n[24] = CountRowSkipSlant(cur, P1);
    n[25] = CountColumnSkipSlant(cur, P1, P2, P3);
    n[26] = CountAlternateEdge(cur, P1, P2);
    n[27] = CountEquidistant(cur, P1, 2);
    n[28] = CountSpacing(draw.listed, 3);
    n[29] = CountEquidistant(cur, P1, 3);
    n[30] = CountSpacing(draw.listed, 5);
    n[31] = HasGapPattern(draw.listed, "00,01");
    return n;
}

}  // namespace ssq
