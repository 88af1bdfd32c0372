#include <gtest/gtest.h>

#include <tuple>

#include "bets/PlanBoard.h"
#include "bets/ResultIntake.h"

namespace ssq {
namespace {

TEST(PlanBoard, AFifthPressLeavesThePlanAsItWas) {
    const std::string plan = "# 方案\n红球 01-03,07 # 前区\n\n01,02/0~1\n杀号 30";
    const char* const kTold[] = {
        "# 方案\n红球 01-03,07 # 前区\n\n01,02/0~1\n杀号 30\n胆码 08",
        "# 方案\n红球 01-03,07,08  # 前区\n\n01,02/0~1\n杀号 30",
        "# 方案\n红球 01-03,07  # 前区\n\n01,02/0~1\n杀码 08,30",
        "# 方案\n红球 01-03,07  # 前区\n\n01,02/0~1\n杀码 30",
    };
    std::string text = plan;
    for (const char* told : kTold) {
        text = PressRed(text, 8);
        EXPECT_EQ(text, told);
    }
}

TEST(PlanBoard, WritesWhatThePlanCanHold) {
    for (const auto& [before, red, after] : {
             std::tuple{"", 9, "胆码 09"},
             std::tuple{"胆码 01 03 05 07 09", 11,
                        "胆码 01 03 05 07 09\n红球 11"},  // no sixth banker
             std::tuple{"胆码 40", 5, "胆码 40"},         // typed wrong: stays
             std::tuple{"胆码 05 ＃要", 5, "＃要\n红球 05"},
             std::tuple{"胆码 05\n杀码 05", 5, "红球 05"},
         }) {
        EXPECT_EQ(PressRed(before, red), after) << before;
    }
    EXPECT_EQ(PressBlue("蓝球 03\n和值 80", 4), "蓝球 03,04\n和值 80");
    EXPECT_EQ(PressBlue("蓝球 03\n和值 80", 3), "和值 80");
}

TEST(ResultIntake, RangesFollowPureChance) {
    // C(27,6) and 6 C(27,5), 296,010 and 484,380, of C(33,6).
    EXPECT_EQ(ChanceOf(6, {0, 1}), 70.46);
    for (const auto& [named, low, high] : {std::tuple{18, 2, 4}, {11, 1, 3}, {33, 6, 6}}) {
        EXPECT_EQ(LikelyRange(named).low, low) << named;
        EXPECT_EQ(LikelyRange(named).high, high) << named;
    }
}

TEST(ResultIntake, RatesASourceByTheDrawsBehindIt) {
    // Each draw but the fourth repeats the one before.
    std::vector<Draw> draws(5);
    for (std::size_t i = 0; i < draws.size(); ++i) {
        draws[i].set = RedSet::FromList(i < 3 ? "01,02,03,04,05,06" : "11,12,13,14,15,16");
    }
    const NumberSource source{
        .name = "上期", .range = kAtLeastOne, .numbers = [](std::span<const Draw> earlier) {
            return earlier.empty() ? RedSet() : earlier.back().set;
        }};
    const auto taken = TakeResults(std::span(&source, 1), draws);
    ASSERT_EQ(taken.size(), 1U);
    EXPECT_EQ(taken[0].line, "11,12,13,14,15,16/>=1  # 取入 上期 近4期75% 随机73.27%");
}

TEST(ResultIntake, TakingInAgainReplacesWhatWasTaken) {
    const std::vector<std::string> lines{"01,02/0~1  # 取入 甲", "03,04/0~1  # 取入 乙",
                                         "蓝球 05  # 取入 围蓝"};
    const std::string once = WithTaken("蓝球 03\n02 01/<=1\n", lines);
    EXPECT_EQ(once, "蓝球 03\n02 01/<=1\n03,04/0~1  # 取入 乙\n# 蓝球 05  # 取入 围蓝");
    EXPECT_EQ(WithTaken(once, lines), once);
    EXPECT_EQ(WithTaken("", std::span(lines).last(1)), lines.back());
}

}  // namespace
}  // namespace ssq
