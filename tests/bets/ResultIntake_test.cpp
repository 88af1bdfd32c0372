#include "bets/ResultIntake.h"

#include <gtest/gtest.h>

#include <tuple>

namespace ssq {
namespace {

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
    const NumberSource source{"上期", NumberSource::Range::kAtLeastOne, false, false,
                              [](std::span<const Draw> earlier) {
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
