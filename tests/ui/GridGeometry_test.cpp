#include "ui/GridGeometry.h"

#include <gtest/gtest.h>

namespace ssq {
namespace {

// Writes the rows of a picture into a grid, one character per cell; '.' stays empty.
ResultGrid GridOf(const std::vector<std::string>& picture, int fixedRows, int fixedCols) {
    ResultGrid grid(static_cast<int>(picture.size()), static_cast<int>(picture.front().size()),
                    fixedRows, fixedCols);
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            const char c = picture[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
            if (c != '.') grid.SetCell(row, col, std::string(1, c));
        }
    }
    return grid;
}

TEST(MergedFixedCells, FormRectanglesOfEqualNeighbours) {
    struct Case {
        const char* what;
        std::vector<std::string> picture;
        int fixedRows;
        int fixedCols;
        std::vector<int> mergeRows;
        std::vector<int> mergeCols;
        std::vector<CellRange> expected;
    };
    const std::vector<Case> cases{
        {"groups over a heading row",
         {"AABBB", "12345"},
         1,
         0,
         {0},
         {},
         {{0, 0, 0, 1}, {0, 2, 0, 4}}},
        {"no flag, no merge", {"AABB", "AA.."}, 2, 0, {}, {}, {}},
        {"a heading over both rows",
         {"ABB", "A12", "..."},
         2,
         0,
         {0},
         {0, 1, 2},
         {{0, 0, 1, 0}, {0, 1, 0, 2}}},
        {"a whole block", {"AAB", "AAC", "..."}, 2, 0, {0}, {0, 1, 2}, {{0, 0, 1, 1}}},
        {"an L stays a rectangle and its rest",
         {"AA", "AB", ".."},
         2,
         0,
         {0},
         {0, 1},
         {{0, 0, 0, 1}}},
        {"one column without the flag stops the block",
         {"AA", "AA", ".."},
         2,
         0,
         {0, 1},
         {0},
         {{0, 0, 0, 1}, {1, 0, 1, 1}}},
        {"body cells never merge", {"AA", "BB", "BB"}, 1, 0, {0, 1, 2}, {0, 1}, {{0, 0, 0, 1}}},
        {"a fixed column merges down to its end",
         {"H1", "A2", "A2", "B2"},
         1,
         1,
         {0},
         {0, 1},
         {{1, 0, 2, 0}}},
        {"across the line between fixed and body columns",
         {"HHH", "A12"},
         1,
         1,
         {0},
         {},
         {{0, 0, 0, 2}}},
        {"empty texts stay apart", {"..A", "..A"}, 1, 1, {0}, {0}, {}},
    };
    for (const Case& c : cases) {
        ResultGrid grid = GridOf(c.picture, c.fixedRows, c.fixedCols);
        for (const int row : c.mergeRows) grid.SetMergeRow(row);
        if (c.mergeCols.size() == c.picture.front().size()) grid.SetMergeAllCols();
        for (const int col : c.mergeCols) grid.SetMergeCol(col);
        EXPECT_EQ(MergedFixedCells(grid), c.expected) << c.what;
    }
}

// Two fixed cells of 10 and 20 pixels, a hidden one, then body cells of 30 each.
GridAxis SmallAxis() {
    return {{10, 20, 30, 0, 30, 30, 30}, 2};
}

TEST(GridAxis, MapsPixelsToCellsAndBack) {
    struct Case {
        int pixel;
        int scroll;
        int expected;
    };
    const GridAxis axis = SmallAxis();
    for (const Case& c : std::vector<Case>{{-1, 0, -1},
                                           {0, 0, 0},
                                           {9, 0, 0},
                                           {10, 0, 1},
                                           {30, 0, 2},
                                           {59, 0, 2},
                                           {60, 0, 4},
                                           {149, 0, 6},
                                           {150, 0, -1},
                                           {29, 45, 1},
                                           {30, 45, 4},
                                           {45, 45, 5},
                                           {105, 45, -1}}) {
        EXPECT_EQ(axis.IndexAt(c.pixel, c.scroll), c.expected) << c.pixel << "/" << c.scroll;
    }
    EXPECT_EQ(axis.Begin(1, 45), 10);
    EXPECT_EQ(axis.Begin(4, 45), 15);
    EXPECT_EQ(axis.End(4, 45), 45);
}

TEST(GridAxis, ShowsOnlyWhatIsInView) {
    const GridAxis axis = SmallAxis();
    const auto [fixed, body] = axis.Strips(45, 70);
    EXPECT_EQ(std::vector({fixed.first, fixed.last, fixed.begin, fixed.end}),
              std::vector({0, 1, 0, 30}));
    EXPECT_EQ(std::vector({body.first, body.last, body.begin, body.end}),
              std::vector({4, 5, 30, 70}));

    const auto [tightFixed, noBody] = axis.Strips(0, 25);
    EXPECT_EQ(tightFixed.end, 25);
    EXPECT_LT(noBody.last, noBody.first);

    const auto across = axis.Visible(1, 4, 45, 70);
    EXPECT_EQ(std::pair(across.begin, across.end), std::pair(10, 45));
    const auto beneath = axis.Visible(2, 2, 45, 70);
    EXPECT_EQ(beneath.begin, beneath.end);
}

TEST(GridAxis, ScrollsJustFarEnough) {
    const GridAxis axis = SmallAxis();
    EXPECT_EQ(axis.MaxScroll(70), 80);
    EXPECT_EQ(axis.MaxScroll(500), 0);
    EXPECT_EQ(axis.ScrollToShow(6, 0, 70), 80);
    EXPECT_EQ(axis.ScrollToShow(4, 80, 70), 30);
    EXPECT_EQ(axis.ScrollToShow(5, 55, 70), 55);
    EXPECT_EQ(axis.ScrollToShow(1, 55, 70), 55);
}

TEST(GridAxis, StepsOverHiddenCellsAndStopsAtTheEnds) {
    const GridAxis axis = SmallAxis();
    EXPECT_EQ(axis.Step(2, 1), 4);
    EXPECT_EQ(axis.Step(4, -1), 2);
    EXPECT_EQ(axis.Step(2, -1), 2);
    EXPECT_EQ(axis.Step(6, 1), 6);
    EXPECT_EQ(axis.Step(0, 1), 2);
    EXPECT_EQ(axis.PageFrom(2, 60), 5);
    EXPECT_EQ(axis.PageFrom(2, 10), 4);
    EXPECT_EQ(axis.PageFrom(6, -1000), 2);
    EXPECT_EQ(axis.PageFrom(2, 1000), 6);

    const GridAxis nothing({10, 0}, 1);
    EXPECT_EQ(nothing.First(), -1);
    EXPECT_EQ(nothing.Step(1, 1), -1);
    EXPECT_EQ(nothing.PageFrom(1, 5), -1);
}

TEST(GridGeometry, TurnsTwipsIntoPixels) {
    ResultGrid grid(3, 3, 1, 1);
    grid.SetRowHeight(1, 330);
    grid.SetColWidth(0, 700);
    grid.SetColWidth(1, 550);
    grid.SetHidden(1, true);
    const GridGeometry at96(grid, {1.0 / 15, 20, {0, 0, 80}});
    EXPECT_EQ(at96.CellRect(1, 0, 0, 0), (PixelRect{0, 20, 47, 22}));
    EXPECT_EQ(at96.CellRect(2, 2, 5, 7), (PixelRect{42, 35, 80, 20}));
    EXPECT_TRUE(at96.CellRect(2, 1, 0, 0).empty());
    EXPECT_EQ(at96.VisibleRect({0, 0, 2, 2}, 5, 7, 100, 50), (PixelRect{0, 0, 100, 50}));

    const GridGeometry at144(grid, {1.0 / 10, 30, {0, 0, 120}});
    EXPECT_EQ(at144.CellRect(1, 0, 0, 0), (PixelRect{0, 30, 70, 33}));
}

}  // namespace
}  // namespace ssq
