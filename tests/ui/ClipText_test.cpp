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
}

}  // namespace
}  // namespace ssq
