#include "charts/TrendCounters.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "charts/CounterTips.h"
#include "charts/dapan_fx.h"
#include "charts/tails.h"

namespace ssq {
namespace {

Draw DrawOf(const char* reds) {
    Draw draw;
    draw.reds = reds;
    draw.set = RedSet::FromList(reds);
    draw.blue = 5;
    return draw;
}

struct Case {
    const char* what;
    const char* heading;
    const char* cur;
    std::vector<const char*> above;  // one to four rows above
    int expected;                    // below four rows; below any number of them without `above`
    int second = 0;                  // in row 2 of the chart
};

// In row 5 every neighbour is there, in row 2 only the counters that look at the row above alone
// see it, and in row 1 there is none.
TEST(TrendCounters, CountAsWorkedOutByHand) {
    const char* const edged = "01,05,10,20,30,33";
    const char* const edges = "02,04,06,12,23,32";
    const char* const zigzag = "10,12,14,16,18,20";
    const std::vector<const char*> skipped{"01", "01,02", "01,03", "01,04"};
    const std::vector<const char*> skippedMore{"01", "02", "03,04", "04"};
    const std::vector<Case> cases{
        {"1:2 5:4,6 33:32", "边1", edged, {edges}, 3, 3},
        {"10:12 30:32", "边2", edged, {edges}, 2, 2},
        {"1:4 5:2 20:23", "边3", edged, {edges}, 3, 3},
        {"no wrap", "边3", "02,31", {"01,32"}, 0},
        {"2 is back", "跳1", "01,02,03,04", skipped, 1},
        {"3 is back", "跳2", "01,02,03,04", skipped, 1},
        {"4 is back", "跳3", "01,02,03,04", skipped, 1},
        {"3 and 4", "跳2", "01,02,03,04", skippedMore, 2},
        {"4 came a row later", "跳3", "01,02,03,04", skippedMore, 0},
        {"1-3 3-5 8-10", "横跳", "01,03,05,08,10,11", {}, 3},
        {"3 and 11", "重号", "01,03,05,08,10,11", {"03,11,12"}, 2, 2},
        {"three steps of 1", "连号", "01,02,03,10,11,13", {}, 3},
        {"12-21 and 13-31", "对望", "05,12,13,21,31,33", {}, 2},
        {"both ways from 5", "斜3", "05", {"04,06", "03,07"}, 2},
        {"over six", "斜3", zigzag, {"09,11,13,15,17,19", "08,10,12,14,16,18"}, 10},
        {"the other side", "斜3", "05", {"04", "07"}, 0},
        {"1, 5 and 0", "尾组", "01,05,10,11,21,31", {}, 3},
        {"1 scores once", "重尾", "01,02,03,04,11,21", {"25,31"}, 1, 1},
        {"2, 1 and 0", "重尾", "01,02,10,13", {"20,22,31,32"}, 3, 3},
        {"blue 5", "红蓝", "04,05,06", {}, 1},
        {"5 once for two edges", "><", "05,06,20", {"04,06", "05,06,20"}, 1},
        {"5 but not 10, 20", "∨", "05,10,20", {"04,06,09,10,11,19"}, 1, 1},
        {"1 and 3 around 2", "∧", "01,03", {"02"}, 1, 1},
        {"2 is drawn", "∧", "01,02,03", {"02"}, 0},
        {"6 is dropped, 11 is not", "┌", "05,08,10,11", {"05,06,08,10,11"}, 1, 1},
        {"5 and 10 are dropped", "┐", "06,08,09,11", {"05,06,08,09,10,11"}, 2, 2},
        {"20 is in P1", "1∨", "10,20", {"09,20", "09,11,19,21"}, 1},
        {"20, 30 came", "2∨", "10,20,30", {"20", "30", "09,11,19,21,29,31"}, 1},
        {"10 alone", "菱形", "10,20,30", {"09,11,19,20,21,29", "10,20,30"}, 1},
        {"10 without its P2", "菱形", "10", {"09,11", "09,11"}, 0},
        {"5 once, 10 not", "重斜", "05,10", {"04,06,11", "04,06,12"}, 1},
        {"sides must be the same", "重斜", "05", {"04", "06"}, 0},
        {"5 once, 10 and 20 not", "连斜", "05,10,20", {"03,04,06,07,09,22"}, 1},
        {"5 right, 20 left", "横跳斜", "05,10,20", {"06,08,09,17,19"}, 2},
        {"7 fills the gap", "横跳斜", "05", {"06,07,08"}, 0},
        {"4 in both, 11 in P2", "竖跳斜", "05,10,20,30", {"04,11,21", "11", "04,11,29"}, 1},
        {"5 and 10", "隔期边", "05,10,20,30", {"20,31", "04,06,09,21,31"}, 2},
        {"5 between 3 and 7", "1等距", "05,10", {"03,07,08,13"}, 1},
        {"10 between 7 and 13", "2等距", "05,10", {"03,07,08,13"}, 1},
        {"1-5, 5-9, 10-14, 14-18", "间距3", "01,05,09,10,14,18", {}, 4},
        {"the sixth is not walked", "间距3", "20,21,22,23,09,05", {}, 0},
        {"2-8, 8-14", "间距5", "01,02,08,14,21,33", {}, 2},
        {"00,01,04,00,09", "01距", "01,02,04,09,10,20", {}, 1},
        {"01,00 is another", "01距", "05,07,08,20,25,33", {}, 0},
    };
    std::set<std::string> scored;
    for (const Case& c : cases) {
        std::size_t counter = 0;
        while (std::string(kTrendCounters.at(counter).heading) != c.heading) ++counter;
        const auto count = [&](std::vector<Draw> series) {
            series.push_back(DrawOf(c.cur));
            return CountRow(series, static_cast<int>(series.size()))[counter];
        };
        std::vector<Draw> four(4);
        for (std::size_t i = 0; i < c.above.size(); ++i) four[3 - i] = DrawOf(c.above[i]);
        const bool looksUp = !c.above.empty();
        EXPECT_EQ(count(four), c.expected) << c.heading << ' ' << c.what;
        EXPECT_EQ(count({four[3]}), looksUp ? c.second : c.expected) << c.heading << ' ' << c.what;
        EXPECT_EQ(count({}), looksUp ? 0 : c.expected) << c.heading << ' ' << c.what;
        if (c.expected > 0) scored.insert(c.heading);
    }
    EXPECT_EQ(scored.size(), kTrendCounters.size());
}

TEST(Tails, AttributesOfOneDraw) {
    const TailDigits tails = TailsOf({1, 4, 16, 20, 27, 30});
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
    EXPECT_EQ(CountEqualGaps(std::vector{0, 0, 0, 3, 3, 9}), 2);  // 0, 0, 3, 0, 6
    EXPECT_EQ(CountEqualGaps(std::vector{0, 1, 2, 4, 6, 9}), 0);  // 1 and 2 are passed over
    EXPECT_EQ(SortNumberList("07,3,11,03,00,10"), "00,03,03,07,10,11");
}

// Each drawing shows what its counter counts: as many numbers as it marks, and enough of them to
// make the pattern occur.
TEST(CounterTips, TheDrawingsCount) {
    for (std::size_t i = 0; i < kTrendCounters.size(); ++i) {
        std::vector<Draw> draws;
        int marked = 0;
        for (const char* line : kCounterMeanings[i].draws) {
            if (!line) break;
            std::vector<std::string> reds;
            Draw draw;
            marked = 0;
            for (const std::string& place : Split(line, " ")) {
                if (place.ends_with('*')) ++marked;
                if (place.starts_with('+'))
                    draw.blue = static_cast<int>(Val(place.substr(1)));
                else if (place != ".")
                    reds.push_back(place.substr(0, 2));
            }
            draw.reds = Join(reds, ",");
            draw.set = RedSet::FromList(draw.reds);
            draws.push_back(draw);
        }
        // Rows enough above the picture for every counter to begin.
        draws.insert(draws.begin(), 5 - draws.size(), Draw{});
        const int count = CountRow(draws, 5)[i];
        const std::string heading = kTrendCounters[i].heading;
        const bool pairs =
            heading == "横跳" || heading == "连号" || heading == "对望" || heading == "∧";
        const bool once = heading == "01距" || heading.starts_with("间距");
        EXPECT_EQ(count, once ? 1 : pairs ? (marked + 1) / 2 : marked) << heading;
        EXPECT_GT(count, kTrendCounters[i].commonUpTo) << heading;
        EXPECT_NE(CounterTip(i).find(Replace(heading, "<", "&lt;")), std::string::npos);
    }
}

}  // namespace
}  // namespace ssq
