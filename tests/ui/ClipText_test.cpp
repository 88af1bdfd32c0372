#include "ui/ClipText.h"

#include <gtest/gtest.h>

namespace ssq {
namespace {

TEST(ClipText, FollowsTheSelection) {
    ResultGrid grid(3, 3, 1, 1);
    grid.SetHidden(1, true);
    for (int i = 0; i < 9; ++i) grid.SetCell(i / 3, i % 3, std::to_string(i));
    const auto expect = [&grid](const char* text, const char* conditions) {
        EXPECT_EQ(SelectionText(grid), text);
        EXPECT_EQ(SelectionConditions(grid), conditions);
    };
    grid.Select(1, 1, 1, 1);
    expect("4", "4/0~1");
    grid.Select(2, 2, 1, 1);
    expect("4,5\r7,8", "4,5/0~1\r\n7,8/0~1");
    grid.Select(1, 2, 2, 0);
    expect("3,4,5\r6,7,8", "3,4,5/0~1\r\n6,7,8/0~1");
    grid.SetRows(1);  // the heading alone: nothing to select
    expect("", "");
    EXPECT_EQ(KillConditions(grid, 0), "");
}

TEST(ClipText, KillConditionsTakeSixColumnsAGroup) {
    ResultGrid grid(2, 28, 1, 1);
    for (int col = 0; col < 28; ++col) grid.SetCell(1, col, "c" + std::to_string(col));
    const std::string three =
        "c2,c3,c4,c5,c6,c7/0~1\r\nc8,c9,c10,c11,c12,c13/0~1\r\nc14,c15,c16,c17,c18,c19/0~1\r\n";
    EXPECT_EQ(KillConditions(grid, 2), three);
    EXPECT_EQ(KillConditions(grid, 3),
              three +
                  "c20,c21,c22,c23,c24,c25/0~1\r\nc2,c8/0~1\r\nc7,c13/0~1\r\nc8,c14/0~1\r\n"
                  "c13,c19/0~1\r\nc14,c20/0~1\r\nc19,c25/0~1\r\nc2,c25/0~1\r\n");
}

}  // namespace
}  // namespace ssq
