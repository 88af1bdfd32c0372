#include "ui/GridGeometry.h"

#include <gtest/gtest.h>

namespace ssq {
namespace {

struct MergeCase {
    const char* what;
    std::vector<std::string> picture;  // one character per cell; '.' stays empty
    int fixedRows;
    int fixedCols;
    std::vector<int> mergeRows;
    std::vector<int> mergeCols;
    std::vector<CellRange> expected;
};

TEST(MergedFixedCells, FormRectanglesOfEqualNeighbours) {
    const std::vector<MergeCase> cases{
        {"groups", {"AABBB", "12345"}, 1, 0, {0}, {}, {{0, 0, 0, 1}, {0, 2, 0, 4}}},
        {"no flag, no merge", {"AABB", "AA.."}, 2, 0, {}, {}, {}},
        {"both rows", {"ABB", "A12"}, 2, 0, {0}, {0, 1, 2}, {{0, 0, 1, 0}, {0, 1, 0, 2}}},
        {"a whole block", {"AAB", "AAC", "..."}, 2, 0, {0}, {0, 1, 2}, {{0, 0, 1, 1}}},
        {"a rectangle of an L", {"AA", "AB", ".."}, 2, 0, {0}, {0, 1}, {{0, 0, 0, 1}}},
        {"a column in the way", {"AA", "AA"}, 2, 0, {0, 1}, {0}, {{0, 0, 0, 1}, {1, 0, 1, 1}}},
        {"body cells never", {"AA", "BB", "BB"}, 1, 0, {0, 1, 2}, {0, 1}, {{0, 0, 0, 1}}},
        {"a fixed column", {"H1", "A2", "A2", "B2"}, 1, 1, {0}, {0, 1}, {{1, 0, 2, 0}}},
        {"across the freeze line", {"HHH", "A12"}, 1, 1, {0}, {}, {{0, 0, 0, 2}}},
        {"empty texts stay apart", {"..A", "..A"}, 1, 1, {0}, {0}, {}},
    };
    for (const MergeCase& c : cases) {
        const int rows = static_cast<int>(c.picture.size());
        const int cols = static_cast<int>(c.picture.front().size());
        ResultGrid grid(rows, cols, c.fixedRows, c.fixedCols);
        for (int row = 0; row < rows; ++row) {
            for (int col = 0; col < cols; ++col) {
                const char text = c.picture[row][col];
                if (text != '.') grid.SetCell(row, col, {text});
            }
        }
        for (const int row : c.mergeRows) grid.SetMergeRow(row);
        for (const int col : c.mergeCols) grid.SetMergeCol(col);
        EXPECT_EQ(MergedFixedCells(grid), c.expected) << c.what;
    }
}

// Two fixed cells of 10 and 20 pixels, then body cells of 30 each, one of them hidden.
GridAxis SmallAxis(GridAxis::Scrolling scrolling = GridAxis::Scrolling::kSmooth) {
    return {{10, 20, 30, 0, 30, 30, 30}, 2, scrolling};
}

TEST(GridAxis, MapsPixelsToCellsAndBack) {
    const GridAxis axis = SmallAxis();
    const auto at = [&axis](int scroll, std::vector<int> pixels) {
        for (int& pixel : pixels) pixel = axis.IndexAt(pixel, scroll);
        return pixels;
    };
    EXPECT_EQ(at(0, {-1, 0, 9, 10, 30, 59, 60, 149, 150}),
              (std::vector{-1, 0, 0, 1, 2, 2, 4, 6, -1}));
    EXPECT_EQ(at(45, {29, 30, 45, 105}), (std::vector{1, 4, 5, -1}));
    EXPECT_EQ(axis.Begin(1, 45), 10);
    EXPECT_EQ(axis.End(4, 45), 45);
    EXPECT_EQ(axis.PageFrom(2, 10), 4);  // at least one cell
    EXPECT_EQ(axis.PageFrom(2, 1000), 6);
}

TEST(GridAxis, ScrollingEndsOnWholeCells) {
    const GridAxis axis = SmallAxis(GridAxis::Scrolling::kWholeCells);
    // In a view of 100 pixels the body has 70: two cells and a part of a third.
    EXPECT_EQ(SmallAxis().MaxScroll(100), 50);
    EXPECT_EQ(axis.MaxScroll(100), 60);
    EXPECT_EQ(axis.ScrollToShow(5, 0, 100), 30);
    EXPECT_EQ(SmallAxis().ScrollToShow(5, 0, 100), 20);
    std::vector<int> settled{0, 14, 16, 44, 46, 60, 90, 1000};
    for (int& scroll : settled) scroll = axis.Settled(scroll);
    EXPECT_EQ(settled, (std::vector{0, 0, 30, 30, 60, 60, 90, 90}));
    EXPECT_EQ(axis.MaxScroll(20), 90);  // no room but for the fixed cells
    EXPECT_EQ(GridAxis({10}, 1, GridAxis::Scrolling::kWholeCells).Settled(5), 5);
}

}  // namespace
}  // namespace ssq
