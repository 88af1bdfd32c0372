#include "charts/dapan_fx.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "charts/TrendCounters.h"
#include "charts/tails.h"

namespace ssq {
namespace {

struct Rows {
    std::vector<int> list;
    RedSet cur, P1, P2, P3, P4;
};

// Several results in one number, one decimal digit each.
int Edges(const Rows& r) {
    int e1 = 9, e2 = 9, e3 = 9;
    CountEdges(r.cur, r.P1, e1, e2, e3);
    return e1 * 100 + e2 * 10 + e3;
}
int Skips(const Rows& r) {
    int s1 = 9, s2 = 9, s3 = 9;
    CountSkips(r.cur, r.P1, r.P2, r.P3, r.P4, s1, s2, s3);
    return s1 * 100 + s2 * 10 + s3;
}
int RowSkipsAndRepeats(const Rows& r) {
    int skips = 9, repeats = 9;
    CountRowSkipsAndRepeats(r.list, r.P1, skips, repeats);
    return skips * 10 + repeats;
}
int TailGroupsAndRepeats(const Rows& r) {
    int groups = 9, repeats = 9;
    CountTailGroups(r.cur, groups);
    CountRepeatTails(r.cur, r.P1, repeats);
    return groups * 10 + repeats;
}
int Pattern0001(const Rows& r) {
    return HasGapPattern(r.list, "00,01");
}

// Any calculator, called with as many rows as it wants.
struct Calculator {
    using S = RedSet;
    Calculator(int (*f)(const Rows&)) : run(f) {}
    Calculator(int (*f)(RedSequence)) : run([f](const Rows& r) { return f(r.list); }) {}
    Calculator(int (*f)(RedSequence, int), int d)
        : run([f, d](const Rows& r) { return f(r.list, d); }) {}
    Calculator(int (*f)(S)) : run([f](const Rows& r) { return f(r.cur); }) {}
    Calculator(int (*f)(S, S)) : run([f](const Rows& r) { return f(r.cur, r.P1); }) {}
    Calculator(int (*f)(S, S, int), int d)
        : run([f, d](const Rows& r) { return f(r.cur, r.P1, d); }) {}
    Calculator(int (*f)(S, S, S)) : run([f](const Rows& r) { return f(r.cur, r.P1, r.P2); }) {}
    Calculator(int (*f)(S, S, S, S))
        : run([f](const Rows& r) { return f(r.cur, r.P1, r.P2, r.P3); }) {}

    std::function<int(const Rows&)> run;
};

struct Case {
    const char* what;
    Calculator calculator;
    const char* cur;
    std::vector<const char*> above;  // P1, P2, P3, P4
    int expected;
    int alone = 0;  // with nothing above, where `above` holds something
};

TEST(DapanFx, CountsAsWorkedOutByHand) {
    const char* const edged = "01,05,10,20,30,33";
    const char* const edges = "02,04,06,12,23,32";
    const char* const zigzag = "10,12,14,16,18,20";
    const std::vector<Case> cases{
        {"1:2 5:4,6 33:32, 10:12 30:32, 1:4 5:2 20:23", Edges, edged, {edges}, 323},
        {"no wrap by 3", Edges, "02,31", {"01,32"}, 200},
        {"2, 3 and 4", Skips, "01,02,03,04", {"01", "01,02", "01,03", "01,04"}, 111},
        {"4 came back a row later", Skips, "01,02,03,04", {"01", "02", "03,04", "04"}, 120},
        {"1-3 3-5 8-10, 3 11", RowSkipsAndRepeats, "01,03,05,08,10,11", {"03,11,12"}, 32, 30},
        {"three steps of 1", CountGap1, "01,02,03,10,11,13", {}, 3},
        {"11 to 13", CountGap2, "01,02,03,10,11,13", {}, 1},
        {"0, 0, 3, 0, 6", CountEqualGaps, "00,00,00,03,03,09", {}, 2},
        {"1 and 2 are passed over", CountEqualGaps, "00,01,02,04,06,09", {}, 0},
        {"12-21 and 13-31", CountMirrorPairs, "05,12,13,21,31,33", {}, 2},
        {"both ways from 5", CountSlant3, "05", {"04,06", "03,07"}, 2},
        {"more than six", CountSlant3, zigzag, {"09,11,13,15,17,19", "08,10,12,14,16,18"}, 10},
        {"P2 on the other side", CountSlant3, "05", {"04", "07"}, 0},
        {"1, 5 and 0", TailGroupsAndRepeats, "01,05,10,11,21,31", {}, 30},
        {"1 scores once", TailGroupsAndRepeats, "01,02,03,04,11,21", {"25,31"}, 41, 40},
        {"2, 1 and 0", TailGroupsAndRepeats, "01,02,10,13", {"20,22,31,32"}, 43, 40},
        {"5 once for two edges", CountCross, "05,06,20", {"04,06", "05,06,20"}, 1},
        {"5 but not 10, 20", CountValley, "05,10,20", {"04,06,09,10,11,19"}, 1},
        {"1 and 3 around 2", CountPeak, "01,03", {"02"}, 1},
        {"2 is drawn", CountPeak, "01,02,03", {"02"}, 0},
        {"6 is dropped, 11 is not", CountCornerUp, "05,08,10,11", {"05,06,08,10,11"}, 1},
        {"5 and 10 are dropped", CountCornerDown, "06,08,09,11", {"05,06,08,09,10,11"}, 2},
        {"20 is in P1", CountValleySkip1, "10,20", {"09,20", "09,11,19,21"}, 1},
        {"20, 30 came", CountValleySkip2, "10,20,30", {"20", "30", "09,11,19,21,29,31"}, 1},
        {"10 alone", CountDiamond, "10,20,30", {"09,11,19,20,21,29", "10,20,30"}, 1},
        {"10 without its P2", CountDiamond, "10", {"09,11", "09,11"}, 0},
        {"5 once, 10 not", CountDoubleSlant, "05,10", {"04,06,11", "04,06,12"}, 1},
        {"sides must be the same", CountDoubleSlant, "05", {"04", "06"}, 0},
        {"5 once, 10 and 20 not", CountRunSlant, "05,10,20", {"03,04,06,07,09,22"}, 1},
        {"5 right, 20 left", CountRowSkipSlant, "05,10,20", {"06,08,09,17,19"}, 2},
        {"7 fills the gap", CountRowSkipSlant, "05", {"06,07,08"}, 0},
        {"11 is in P2", CountColumnSkipSlant, "05,10", {"04,06,11", "11", "04,06,11"}, 1},
        {"5 and 10", CountAlternateEdge, "05,10,20,30", {"20,31", "04,06,09,21,31"}, 2},
        {"5 between 3 and 7", {CountEquidistant, 2}, "05,10", {"03,07,08,13"}, 1},
        {"10 between 7 and 13", {CountEquidistant, 3}, "05,10", {"03,07,08,13"}, 1},
        {"1-5, 5-9, 10-14, 14-18", {CountSpacing, 3}, "01,05,09,10,14,18", {}, 4},
        {"2-8, 8-14", {CountSpacing, 5}, "01,02,08,14,21,33", {}, 2},
        {"the sixth is not walked", {CountSpacing, 3}, "20,21,22,23,09,05", {}, 0},
        {"00,01,04,00,09", Pattern0001, "01,02,04,09,10,20", {}, 1},
        {"01,00 is another", Pattern0001, "05,07,08,20,25,33", {}, 0},
    };
    for (const Case& c : cases) {
        const CountedDraw draw = CountedDrawOf(c.cur, 0);
        Rows rows{draw.listed, draw.set, {}, {}, {}, {}};
        const int alone = c.above.empty() ? c.expected : c.alone;
        EXPECT_EQ(c.calculator.run(rows), alone) << c.what << ", nothing above";
        RedSet* const targets[] = {&rows.P1, &rows.P2, &rows.P3, &rows.P4};
        for (std::size_t i = 0; i < c.above.size(); ++i) *targets[i] = RedSet::FromList(c.above[i]);
        EXPECT_EQ(c.calculator.run(rows), c.expected) << c.what << ", draw " << c.cur;
    }
}

TEST(DapanFx, SortsListsByValue) {
    EXPECT_EQ(SortNumberList("07,3,11,03,00,10"), "00,03,03,07,10,11");
    EXPECT_EQ(SortNumberList(""), "");
}

TEST(Tails, AttributesOfOneDraw) {
    const TailDigits tails = TailsOf(std::vector{1, 4, 16, 20, 27, 30});
    EXPECT_EQ(tails, (TailDigits{1, 4, 6, 0, 7, 0}));
    const TailAttributes a = AttributesOf(tails);
    EXPECT_EQ(a.hits, (std::array<int, 10>{2, 1, 0, 0, 1, 0, 1, 1, 0, 0}));
    EXPECT_EQ((std::array{a.sum, a.even, a.odd, a.big, a.small, a.prime, a.composite}),
              (std::array{18, 4, 2, 2, 4, 2, 4}));
    EXPECT_EQ(a.zones, (std::array<int, 3>{3, 1, 2}));
    EXPECT_EQ(a.form, "AACBAB");
    EXPECT_EQ(a.letters, (std::array<int, 3>{3, 2, 1}));
    EXPECT_EQ(a.sameTailGroups, 1);
    EXPECT_EQ(a.distance, (std::array<int, 5>{3, 2, 6, 7, 7}));
    EXPECT_EQ(a.pairSum, (std::array<int, 5>{5, 10, 6, 7, 7}));
    EXPECT_EQ(SwingOf(tails, {3, 3, 3, 3, 3, 3}), (std::array<int, 6>{2, 1, 3, 3, 4, 3}));
    EXPECT_EQ(AttributesOf({9, 8, 5, 3, 2, 9}).form, "CBBCBC");
    EXPECT_EQ(AttributesOf({1, 2, 3, 5, 7, 9}).prime, 5);
}

}  // namespace
}  // namespace ssq
