#include "charts/dapan_fx.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/numbers.h"
#include "app/text.h"
#include "charts/tails.h"

namespace ssq {
namespace {

std::vector<int> Numbers(const std::string& list) {
    std::vector<int> numbers;
    for (const std::string& item : Split(list, ",")) numbers.push_back(static_cast<int>(Val(item)));
    return numbers;
}

struct Rows {
    std::vector<int> list;
    RedSet cur, P1, P2, P3, P4;
};

template <int which>
int Edge(const Rows& r) {
    int e[3];
    CountEdges(r.cur, r.P1, e[0], e[1], e[2]);
    return e[which - 1];
}
template <int which>
int Skip(const Rows& r) {
    int s[3];
    CountSkips(r.cur, r.P1, r.P2, r.P3, r.P4, s[0], s[1], s[2]);
    return s[which - 1];
}
template <int which>
int RowSkipOrRepeat(const Rows& r) {
    int n[2];
    CountRowSkipsAndRepeats(r.list, r.P1, n[0], n[1]);
    return n[which];
}
int TailGroups(const Rows& r) {
    int groups = -1;
    CountTailGroups(r.cur, groups);
    return groups;
}
int RepeatTails(const Rows& r) {
    int tails = -1;
    CountRepeatTails(r.cur, r.P1, tails);
    return tails;
}
int Gap1(const Rows& r) {
    return CountGap1(r.list);
}
int Gap2(const Rows& r) {
    return CountGap2(r.list);
}
int EqualGaps(const Rows& r) {
    return CountEqualGaps(r.list);
}
int MirrorPairs(const Rows& r) {
    return CountMirrorPairs(r.cur);
}
int Slant3(const Rows& r) {
    return CountSlant3(r.cur, r.P1, r.P2);
}
int Cross(const Rows& r) {
    return CountCross(r.cur, r.P1, r.P2);
}
int Valley(const Rows& r) {
    return CountValley(r.cur, r.P1);
}
int Peak(const Rows& r) {
    return CountPeak(r.cur, r.P1);
}
int CornerUp(const Rows& r) {
    return CountCornerUp(r.cur, r.P1);
}
int CornerDown(const Rows& r) {
    return CountCornerDown(r.cur, r.P1);
}
int ValleySkip1(const Rows& r) {
    return CountValleySkip1(r.cur, r.P1, r.P2);
}
int ValleySkip2(const Rows& r) {
    return CountValleySkip2(r.cur, r.P1, r.P2, r.P3);
}
int Diamond(const Rows& r) {
    return CountDiamond(r.cur, r.P1, r.P2);
}
int DoubleSlant(const Rows& r) {
    return CountDoubleSlant(r.cur, r.P1, r.P2);
}
int RunSlant(const Rows& r) {
    return CountRunSlant(r.cur, r.P1);
}
int RowSkipSlant(const Rows& r) {
    return CountRowSkipSlant(r.cur, r.P1);
}
int ColumnSkipSlant(const Rows& r) {
    return CountColumnSkipSlant(r.cur, r.P1, r.P2, r.P3);
}
int AlternateEdge(const Rows& r) {
    return CountAlternateEdge(r.cur, r.P1, r.P2);
}
template <int d>
int Equidistant(const Rows& r) {
    return CountEquidistant(r.cur, r.P1, d);
}
template <int d>
int Spacing(const Rows& r) {
    return CountSpacing(r.list, d);
}
int Pattern0001(const Rows& r) {
    return HasGapPattern(r.list, "00,01");
}

struct Case {
    const char* what;
    int (*calculator)(const Rows&);
    const char* cur;
    std::vector<const char*> above;  // P1, P2, P3, P4
    int expected;
};

TEST(DapanFx, CountsAsWorkedOutByHand) {
    const char* const edged = "01,05,10,20,30,33";
    const char* const edges = "02,04,06,12,23,32";
    const char* const zigzag = "10,12,14,16,18,20";
    const std::vector<Case> cases{
        {"1:2 5:4,6 33:32", Edge<1>, edged, {edges}, 3},
        {"10:12 30:32", Edge<2>, edged, {edges}, 2},
        {"1:4 5:2 20:23", Edge<3>, edged, {edges}, 3},
        {"no wrap from 33 to 1", Edge<1>, "01,33", {"01,33"}, 0},
        {"no wrap by 3", Edge<3>, "02,31", {"01,32"}, 0},
        {"only 2 skips one", Skip<1>, "01,02,03,04", {"01", "01,02", "01,03", "01,04"}, 1},
        {"only 3 skips two", Skip<2>, "01,02,03,04", {"01", "01,02", "01,03", "01,04"}, 1},
        {"only 4 skips three", Skip<3>, "01,02,03,04", {"01", "01,02", "01,03", "01,04"}, 1},
        {"4 came back a row later", Skip<3>, "01,02,03,04", {"01", "02", "03,04", "04"}, 0},
        {"1-3, 3-5, 8-10", RowSkipOrRepeat<0>, "01,03,05,08,10,11", {"03,11,12"}, 3},
        {"3 and 11", RowSkipOrRepeat<1>, "01,03,05,08,10,11", {"03,11,12"}, 2},
        {"the middle is drawn", RowSkipOrRepeat<0>, "01,02,03", {}, 0},
        {"three steps of 1", Gap1, "01,02,03,10,11,13", {}, 3},
        {"falling steps too", Gap1, "05,04,10,09,20,22", {}, 2},
        {"11 to 13", Gap2, "01,02,03,10,11,13", {}, 1},
        {"one number has no gap", Gap1, "07", {}, 0},
        {"0, 0, 3, 0, 6", EqualGaps, "00,00,00,03,03,09", {}, 2},
        {"three of 3, two of 0", EqualGaps, "00,03,06,09,09,09", {}, 3},
        {"1 and 2 are passed over", EqualGaps, "00,01,02,04,06,09", {}, 0},
        {"12-21 and 13-31", MirrorPairs, "05,12,13,21,31,33", {}, 2},
        {"01-10 and 03-30", MirrorPairs, "01,03,10,11,22,30", {}, 2},
        {"no partner beyond 33", MirrorPairs, "04,11,14,22,24,33", {}, 0},
        {"both ways from 5", Slant3, "05", {"04,06", "03,07"}, 2},
        {"more than six", Slant3, zigzag, {"09,11,13,15,17,19", "08,10,12,14,16,18"}, 10},
        {"P2 on the other side", Slant3, "05", {"04", "07"}, 0},
        {"1, 5 and 0", TailGroups, "01,05,10,11,21,31", {}, 3},
        {"tail 1 scores once", RepeatTails, "01,02,03,04,11,21", {"25,31"}, 1},
        {"tails 2, 1 and 0", RepeatTails, "01,02,10,13", {"20,22,31,32"}, 3},
        {"5 once for two edges", Cross, "05,06,20", {"04,06", "05,06,20"}, 1},
        {"5 but not 10, 20", Valley, "05,10,20", {"04,06,09,10,11,19"}, 1},
        {"no valley over the rim", Valley, "01,33", {"02,32"}, 0},
        {"1 and 3 around 2", Peak, "01,03", {"02"}, 1},
        {"2 is drawn", Peak, "01,02,03", {"02"}, 0},
        {"6 is dropped, 11 is not", CornerUp, "05,08,10,11", {"05,06,08,10,11"}, 1},
        {"5 and 10 are dropped", CornerDown, "06,08,09,11", {"05,06,08,09,10,11"}, 2},
        {"20 is in P1", ValleySkip1, "10,20", {"09,20", "09,11,19,21"}, 1},
        {"20 and 30 came between", ValleySkip2, "10,20,30", {"20", "30", "09,11,19,21,29,31"}, 1},
        {"10 alone", Diamond, "10,20,30", {"09,11,19,20,21,29", "10,20,30"}, 1},
        {"10 without its P2", Diamond, "10", {"09,11", "09,11"}, 0},
        {"5 once, 10 not", DoubleSlant, "05,10", {"04,06,11", "04,06,12"}, 1},
        {"sides must be the same", DoubleSlant, "05", {"04", "06"}, 0},
        {"5 once, 10 and 20 not", RunSlant, "05,10,20", {"03,04,06,07,09,22"}, 1},
        {"5 right, 20 left", RowSkipSlant, "05,10,20", {"06,08,09,17,19"}, 2},
        {"7 fills the gap", RowSkipSlant, "05", {"06,07,08"}, 0},
        {"11 is in P2", ColumnSkipSlant, "05,10", {"04,06,11", "11", "04,06,11"}, 1},
        {"5 and 10", AlternateEdge, "05,10,20,30", {"20,31", "04,06,09,21,31"}, 2},
        {"5 between 3 and 7", Equidistant<2>, "05,10", {"03,07,08,13"}, 1},
        {"10 between 7 and 13", Equidistant<3>, "05,10", {"03,07,08,13"}, 1},
        {"no wrap", Equidistant<2>, "02,32", {"01,04,30,33"}, 0},
        {"1-5, 5-9, 10-14, 14-18", Spacing<3>, "01,05,09,10,14,18", {}, 4},
        {"2-8, 8-14", Spacing<5>, "01,02,08,14,21,33", {}, 2},
        {"the sixth is not walked", Spacing<3>, "20,21,22,23,09,05", {}, 0},
        {"5, 6, 8", Pattern0001, "05,06,08,20,25,33", {}, 1},
        {"00,01,04,00,09", Pattern0001, "01,02,04,09,10,20", {}, 1},
        {"01,00 is another", Pattern0001, "05,07,08,20,25,33", {}, 0},
    };
    for (const Case& c : cases) {
        Rows rows{Numbers(c.cur), RedSet::FromList(c.cur), {}, {}, {}, {}};
        RedSet* const targets[] = {&rows.P1, &rows.P2, &rows.P3, &rows.P4};
        for (std::size_t i = 0; i < c.above.size(); ++i) *targets[i] = RedSet::FromList(c.above[i]);
        EXPECT_EQ(c.calculator(rows), c.expected) << c.what << ", draw " << c.cur;
    }
}

TEST(DapanFx, CountsNothingAgainstMissingNeighbours) {
    const std::string draw = "01,03,12,21,22,33";
    const Rows rows{Numbers(draw), RedSet::FromList(draw), {}, {}, {}, {}};
    for (auto* calculator : {Edge<1>,
                             Edge<2>,
                             Edge<3>,
                             Skip<1>,
                             Skip<2>,
                             Skip<3>,
                             RowSkipOrRepeat<1>,
                             Slant3,
                             RepeatTails,
                             Cross,
                             Valley,
                             Peak,
                             CornerUp,
                             CornerDown,
                             ValleySkip1,
                             ValleySkip2,
                             Diamond,
                             DoubleSlant,
                             RunSlant,
                             RowSkipSlant,
                             ColumnSkipSlant,
                             AlternateEdge,
                             Equidistant<2>}) {
        EXPECT_EQ(calculator(rows), 0);
    }
}

TEST(DapanFx, SortsListsByValue) {
    EXPECT_EQ(SortNumberList("07,3,11,03,00,10"), "00,03,03,07,10,11");
    EXPECT_EQ(SortNumberList(""), "");
}

TEST(Tails, AttributesOfOneDraw) {
    const TailDigits tails = TailsOf(Numbers("01,04,16,20,27,30"));
    EXPECT_EQ(tails, (TailDigits{1, 4, 6, 0, 7, 0}));
    const TailAttributes a = AttributesOf(tails);
    EXPECT_EQ(a.hits, (std::array<int, 10>{2, 1, 0, 0, 1, 0, 1, 1, 0, 0}));
    EXPECT_EQ(a.sum, 18);
    EXPECT_EQ(a.even * 10 + a.odd, 42);
    EXPECT_EQ(a.big * 10 + a.small, 24);
    EXPECT_EQ(a.prime * 10 + a.composite, 24);
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
