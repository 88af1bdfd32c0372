#include "ui/GridOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ssq {
namespace {

using testing::ElementsAre;

// A heading, five draws, two rows below them.
ResultGrid SomeDraws() {
    ResultGrid grid(8, 3, 1, 1);
    const char* const values[] = {"次数", "10", "9", "", "-", "9", "1", "2"};
    for (int row = 0; row < grid.rows(); ++row) {
        grid.SetCell(row, 0, "2026" + std::to_string(row));
        grid.SetCell(row, 1, values[row]);
        grid.SetCell(row, 2, "0" + std::to_string(row) + ",12");
    }
    grid.SetRowHeight(1, 500);
    grid.SetBack(1, 2, {1, 2, 3});
    grid.footRow = 6;
    return grid;
}

TEST(SortedRows, OrderTheBodyByValueAndLeaveTheRest) {
    const ResultGrid grid = SomeDraws();
    EXPECT_THAT(SortedRows(grid, 1, false), ElementsAre(0, 2, 5, 1, 4, 3, 6, 7));
    EXPECT_THAT(SortedRows(grid, 1, true), ElementsAre(0, 4, 1, 2, 5, 3, 6, 7));
    EXPECT_THAT(SortedRows(grid, 2, true), ElementsAre(0, 5, 4, 3, 2, 1, 6, 7));  // lists of balls
    const ResultGrid sorted = grid.Reordered(SortedRows(grid, 1, false));
    EXPECT_EQ(sorted.cell(3, 0), "20261");
    EXPECT_EQ(sorted.rowHeight(3), 500);
    EXPECT_EQ(sorted.rowHeight(1), std::nullopt);
    EXPECT_EQ(sorted.style(3, 2).back, (Rgb{1, 2, 3}));
    ResultGrid headings(1, 2, 1, 0);
    headings.footRow = 5;
    EXPECT_THAT(SortedRows(headings, 1, true), ElementsAre(0));
}

TEST(FindCells, PassOverHiddenColumnsAndCountMergedCellsOnce) {
    ResultGrid grid(3, 4, 1, 0);
    const char* const texts[] = {"Ab", "Ab", "x", "ab", "1", "cab", "ABBA", "", "", "", "", "b"};
    for (int i = 0; i < 12; ++i) grid.SetCell(i / 4, i % 4, texts[i]);
    grid.SetMergeRow(0);
    grid.SetHidden(2, true);
    const GridGeometry geometry(grid, {});
    EXPECT_THAT(FindCells(grid, geometry, "aB"),
                ElementsAre(CellPlace{0, 0}, CellPlace{0, 3}, CellPlace{1, 1}));
    EXPECT_TRUE(FindCells(grid, geometry, "").empty());
}

TEST(FiguresOf, CountNumbersAndNoListsOrWords) {
    ResultGrid grid = SomeDraws();
    grid.Select(5, 2, 1, 1);
    const SelectionFigures figures = FiguresOf(grid);
    EXPECT_EQ(figures.cells, 10);
    EXPECT_EQ(figures.numbers, 3);
    EXPECT_EQ(figures.sum, 28);
    grid.SetHidden(1, true);
    EXPECT_EQ(FiguresOf(grid).cells, 5);
}

}  // namespace
}  // namespace ssq
