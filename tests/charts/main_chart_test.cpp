#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "base/text.h"
#include "charts/MainTrendChart.h"
#include "draws/Public_var.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;

constexpr Rgb kBest{255, 255, 255};
constexpr Rgb kLastButOne{199, 199, 44};
constexpr Rgb kLastButTwo{236, 241, 241};

class MainTrendChartTest : public testing::Test {
  protected:
    bool Build(const std::string& start, const std::string& end, int type = 0) {
        auto built = BuildMainTrendChart(database.session(), {start, end}, type);
        if (built) chart = std::move(*built);
        return built.has_value();
    }
    // The texts of the rows 1 to `rows` in a column.
    std::string Column(int col, int rows) const {
        std::vector<std::string> texts;
        for (int row = 1; row <= rows; ++row) texts.push_back(grid.cell(row, col));
        return Join(texts, " ");
    }

    TestDatabase database;
    MainTrendChart chart;
    const ResultGrid& grid = chart.report.grid;
};

TEST_F(MainTrendChartTest, LaysOutDrawsPicksCountsAndRates) {
    database.AddDraw(2024001, "2024-01-02", "01,05,10,20,30,33", 5, "20,01,33,05,10,30");
    database.AddDraw(2024002, "2024-01-04", "03,05,12,21,31,32", 7);
    database.AddDraw(2024003, "2024-01-07", "01,03,06,10,11,20", 16);
    database.AddDraw(2024004, "2024-01-09", "05,12,13,14,30,31", 1);
    database.AddDraw(2024005, "2024-01-11", "07,08,10,21,24,33", 2);
    ASSERT_TRUE(Build(" 2024001 ", "2024005"));
    EXPECT_EQ(chart.report.caption, "走势图结果  [共5期]");
    EXPECT_EQ(chart.pickRowList, "06,07,08");
    EXPECT_EQ(grid.rows() * 100 + grid.cols(), 1169);
    EXPECT_EQ(grid.cell(1, 1), "01,05,10,20,30,33");
    EXPECT_EQ(grid.cell(6, 1) + grid.cell(9, 1), "12024006期预选号命中概率");
    EXPECT_EQ(Column(2, 6), "05 07 16 01 02 ");
    EXPECT_EQ(Column(7, 10), "05 05  05     60 ");  // 5 in three draws of five, and its rate
    EXPECT_EQ(Column(4, 9), "        0");
    EXPECT_EQ(Column(36, 2), "20,01,33,05,10,30 ");
    EXPECT_TRUE(grid.style(1, 7).bold);
    EXPECT_EQ(grid.rowHeight(8), 330);
    for (const int col : {7, 12}) EXPECT_EQ(grid.style(9, col).fore, kBest);
    EXPECT_FALSE(grid.style(9, 3).fore);
    EXPECT_EQ(grid.style(9, 3).fontName + grid.style(6, 40).fontName, "Arial NarrowArial Narrow");
    EXPECT_EQ(grid.style(9, 3).fontSize, 8);

    const Rgb band{153, 51, 102};
    for (const int col : {3, 9, 17, 23, 31, 35}) EXPECT_EQ(grid.style(9, col).back, band) << col;
    for (const int col : {2, 10, 16, 24, 30, 36}) EXPECT_FALSE(grid.style(9, col).back) << col;
    for (const int row : {0, 10}) EXPECT_FALSE(grid.style(row, 3).back) << row;
    EXPECT_EQ(grid.style(4, 7).fore, kLastButOne);   // 05 in row 4 only
    EXPECT_EQ(grid.style(4, 35).fore, kLastButOne);  // 33 in row 5 only: an empty cell
    EXPECT_FALSE(grid.style(3, 35).fore);            // rows 3 and 4 agree
    EXPECT_EQ(grid.style(3, 8).fore, kLastButTwo);   // 06 in row 3 only
    EXPECT_FALSE(grid.style(4, 8).fore);
    EXPECT_FALSE(grid.style(3, 12).fore);  // 10 in rows 3 and 5

    // The rate counts the rows behind the leading ones.
    struct Expected {
        int col;
        const char *heading, *counts, *rate;
    };
    const Expected columns[] = {
        {37, "跳1", "0 0 3 3 1", "100"},   // 01 10 20; 05 12 31; 10
        {39, "跳3", "0 0 0 0 1", "100"},   // 33 of row 1
        {40, "边1", "0 3 3 2 0", "75"},    // 21 31 32; 06 11 20; 05 12
        {48, "尾组", "4 4 4 6 6", "100"},  // counts as occurred above 3
        {49, "重尾", "0 3 2 3 4", "100"},  // 1 3 5; 1 3; 0 1 3; 0 1 3 4
        {68, "01距", "0 0 0 0 1", "20"},   // 07 08 10
    };
    for (const auto& [col, heading, counts, rate] : columns) {
        EXPECT_EQ(grid.cell(0, col), heading);
        EXPECT_EQ(Column(col, 6), std::string(counts) + " " + rate) << heading;
    }

    EXPECT_FALSE(Build("2024005", "2024001"));
    EXPECT_THAT(database.host().Texts(), ElementsAre("无数据！"));
    EXPECT_FALSE(Build("2024001", "2024999"));  // no such draw, so no next issue
    EXPECT_FALSE(Build("一", "2024005"));
    EXPECT_EQ(database.host().boxes.size(), 3U);
}

TEST_F(MainTrendChartTest, ShortSeriesReachTheHeadingAndRatesOverNothingShowADash) {
    database.AddDraw(2024001, "2024-01-02", "01,02,03,11,12,21", 5);
    database.AddDraw(2024002, "2024-01-04", "04,05,14,15,24,31", 5);
    ASSERT_TRUE(Build("2024001", "2024002"));
    EXPECT_EQ(grid.cell(3, 37), "-");               // 0 of 0 rows
    EXPECT_EQ(grid.cell(3, 38), "0");               // 0 of -1 rows
    EXPECT_EQ(grid.cell(3, 48), "0");               // three groups of tails are no occurrence
    EXPECT_EQ(grid.cell(3, 49), "0");               // nor is one repeated tail
    EXPECT_EQ(grid.style(0, 9).fore, kLastButTwo);  // 07 in the heading only
    ASSERT_TRUE(Build("2024002", "2024002"));
    EXPECT_EQ(Column(6, 6), "04    100 ");
    EXPECT_EQ(grid.style(0, 9).fore, kLastButOne);
    EXPECT_FALSE(grid.style(0, 6).fore);
}

TEST_F(MainTrendChartTest, TypesChooseTheSeries) {
    const std::map<int, const char*> draws{{2022006, "2022-01-14"}, {2023006, "2023-01-15"},
                                           {2023016, "2023-02-12"}, {2023031, "2023-03-21"},
                                           {2023085, "2023-07-19"}, {2024004, "2024-01-09"},
                                           {2024005, "2024-01-11"}};
    for (const auto& [issue, date] : draws) database.AddDraw(issue, date, "01,02,03,04,05,06", 1);
    // 2024005 stands on a Thursday: the next issue is 2024006, on Sunday 14 January 2024, the
    // fourth lunar day. Behind 2023031 comes a Thursday, the second day of a leap lunar month;
    // 19 July is a second day too.
    struct Series {
        int type;
        const char *start, *end, *issues;
    };
    const Series series[] = {
        {0, "2023016", "2024004", "23016 23031 23085 24004"},
        {1, "", "2024005", "22006 23006"},
        {2, "2024001", "2024005", "22006 23006 23016"},
        {3, "2023001", "2024005", "23031 23085 24005"},
        {4, "2023001", "2024005", "23006 23016 24004"},
        {5, "2024001", "2024005", "22006"},
        {6, "2024001", "2023031", "23085"},
        {7, "2023010", "2024005", "23016"},
    };
    for (const Series& s : series) {
        ASSERT_TRUE(Build(s.start, s.end, s.type)) << s.type;
        EXPECT_EQ(Column(0, grid.rows() - 6), s.issues) << "type " << s.type;
    }
}

TEST(TogglePick, SetsAndEmptiesByTheTextOfTheRows) {
    ResultGrid grid(110, 69, 1, 3);
    grid.SetCell(101, 1, "label");
    // Twice the same cell; behind the numbers; no pick row; 10 occurs in the text of the rows.
    const int presses[][2] = {{101, 3},  {103, 35}, {101, 4}, {101, 4},
                              {103, 36}, {104, 3},  {10, 0},  {101, 1}};
    for (const auto& [row, col] : presses) TogglePick(grid, "101,102,103", row, col);
    EXPECT_EQ(grid.cell(101, 3) + grid.cell(103, 35) + grid.cell(10, 0), "0133-02");
    EXPECT_EQ(grid.cell(101, 4) + grid.cell(103, 36) + grid.cell(104, 3) + grid.cell(101, 1), "");
    EXPECT_TRUE(grid.style(101, 3).bold);
    EXPECT_EQ(grid.style(101, 3).fore, (Rgb{200, 200, 200}));
}

}  // namespace
}  // namespace ssq
