#include "ui/ClipText.h"

#include <gtest/gtest.h>

namespace ssq {
namespace {

ResultGrid Numbers() {
    ResultGrid grid(3, 3, 1, 1);
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) grid.SetCell(row, col, std::to_string(row * 3 + col));
    }
    return grid;
}

TEST(ClipText, FollowsTheSelection) {
    struct Case {
        std::vector<int> selection;
        const char* text;
        const char* conditions;
    };
    for (const Case& c : std::vector<Case>{
             {{1, 1, 1, 1}, "4", "4/0~1"},
             {{1, 1, 2, 2}, "4,5\r7,8", "4,5/0~1\r\n7,8/0~1"},
             {{2, 2, 1, 1}, "4,5\r7,8", "4,5/0~1\r\n7,8/0~1"},
             {{1, 2, 2, 0}, "3,4,5\r6,7,8", "3,4,5/0~1\r\n6,7,8/0~1"},
         }) {
        ResultGrid grid = Numbers();
        grid.SetHidden(1, true);
        grid.Select(c.selection[0], c.selection[1], c.selection[2], c.selection[3]);
        EXPECT_EQ(SelectionText(grid), c.text);
        EXPECT_EQ(SelectionConditions(grid), c.conditions);
    }
}

TEST(ClipText, IsEmptyWithoutASelection) {
    const ResultGrid headingOnly(1, 3, 1, 0);
    EXPECT_EQ(SelectionText(headingOnly), "");
    EXPECT_EQ(SelectionConditions(headingOnly), "");
}

TEST(ClipText, KillConditionsTakeSixColumnsAGroup) {
    ResultGrid grid(2, 28, 1, 1);
    for (int col = 0; col < 28; ++col) grid.SetCell(1, col, "c" + std::to_string(col));
    grid.Select(1, 1, 1, 1);

    EXPECT_EQ(KillConditions(grid, 0), "c2,c3,c4,c5,c6,c7/0~1\r\n");
    EXPECT_EQ(KillConditions(grid, 2),
              "c2,c3,c4,c5,c6,c7/0~1\r\nc8,c9,c10,c11,c12,c13/0~1\r\n"
              "c14,c15,c16,c17,c18,c19/0~1\r\n");
    EXPECT_EQ(KillConditions(grid, 3),
              "c2,c3,c4,c5,c6,c7/0~1\r\nc8,c9,c10,c11,c12,c13/0~1\r\n"
              "c14,c15,c16,c17,c18,c19/0~1\r\nc20,c21,c22,c23,c24,c25/0~1\r\n"
              "c2,c8/0~1\r\nc7,c13/0~1\r\nc8,c14/0~1\r\nc13,c19/0~1\r\n"
              "c14,c20/0~1\r\nc19,c25/0~1\r\nc2,c25/0~1\r\n");
}

}  // namespace
}  // namespace ssq
