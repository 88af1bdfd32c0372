#include "ui/ClipText.h"

#include <gtest/gtest.h>

#include "ui/GridOrder.h"

namespace ssq {
namespace {

TEST(ClipText, FollowsTheSelection) {
    ResultGrid grid(3, 3, 1, 1);
    grid.SetHidden(1, true);
    for (int i = 0; i < 9; ++i) grid.SetCell(i / 3, i % 3, std::to_string(i));
    const auto expect = [&grid](const char* text, const char* conditions) {
        EXPECT_EQ(SelectionText(grid, SelectedRows(grid)), text);
        EXPECT_EQ(SelectionConditions(grid, SelectedRows(grid)), conditions);
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

TEST(ClipText, TablesHoldHeadingsFixedColumnsAndWhatIsSelected) {
    ResultGrid grid(4, 4, 1, 1);
    for (int i = 0; i < 16; ++i) grid.SetCell(i / 4, i % 4, std::to_string(i));
    grid.SetHidden(1, true);
    grid.SetCell(2, 3, "0\t\"<");
    grid.SetBack(3, 3, {255, 0, 0});
    grid.SetCell(3, 3, "07");
    grid.Select(2, 1, 3, 3);
    const TablePart part = SelectedTable(grid, SelectedRows(grid));
    EXPECT_EQ(TabbedText(grid, part), "0\t2\t3\r\n8\t10\t0 \"<\r\n12\t14\t07\r\n");
    EXPECT_EQ(CsvText(grid, part),
              "\xEF\xBB\xBF"
              "0,2,3\r\n8,10,\"0\t\"\"<\"\r\n12,14,07\r\n");
    EXPECT_EQ(part.bodyRows, 2);
    EXPECT_EQ(part.bodyCols, 2);
    const std::string html = HtmlTable(grid, part);
    EXPECT_NE(html.find(">0\t\"&lt;</td>"), std::string::npos);
    EXPECT_NE(html.find("background:#ff0000;"), std::string::npos);
    EXPECT_NE(html.find("mso-number-format:'\\@';\">07<"), std::string::npos);
    EXPECT_EQ(WholeTable(grid).rows.size() * WholeTable(grid).cols.size(), 12U);
}

}  // namespace
}  // namespace ssq
