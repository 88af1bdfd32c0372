#include "bets/PlanBoard.h"

#include <gtest/gtest.h>

#include <tuple>

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

}  // namespace
}  // namespace ssq
