#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Public_var.h"
#include "app/text.h"
#include "charts/MainTrendChart.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;

class MainTrendChartTest : public testing::Test {
  protected:
    MainTrendChartTest() { Run("delete from cphm"); }

    void Run(const std::string& sql) { ASSERT_TRUE(ExecuteOrTell(session, sql)) << sql; }

    // The reds in the order of the list; the lunar day is 4 unless told.
    void AddDraw(const std::string& issue, const std::string& date, int week, int blue,
                 const std::string& reds, const std::string& order = "null", int lunarDay = 4) {
        Run("insert into cphm(qid,kjqh,kjhm,a1,a2,a3,a4,a5,a6,a7,kjDate,kjWeek,nnDate,cqsx) "
            "values(1," +
            issue + ",'" + reds + "'," + reds + "," + std::to_string(blue) + ",'" + date + "'," +
            std::to_string(week) + "," + std::to_string(lunarDay) + "," + order + ")");
    }

    // Five draws in a row; what their counters say is worked out in the tests.
    void AddFive() {
        AddDraw("2024001", "2024-01-02", 3, 5, "01,05,10,20,30,33", "'20,01,33,05,10,30'");
        AddDraw("2024002", "2024-01-04", 5, 7, "03,05,12,21,31,32");
        AddDraw("2024003", "2024-01-07", 1, 16, "01,03,06,10,11,20");
        AddDraw("2024004", "2024-01-09", 3, 1, "05,12,13,14,30,31");
        AddDraw("2024005", "2024-01-11", 5, 2, "07,08,10,21,24,33");
    }

    bool Build(const std::string& start, const std::string& end, int type = 0) {
        return BuildMainTrendChart(session, {start, end}, type, chart);
    }

    int ColumnOf(const std::string& heading) const {
        for (int col = 36; col < chart.grid.cols(); ++col) {
            if (chart.grid.cell(0, col) == heading) return col;
        }
        ADD_FAILURE() << "no column " << heading;
        return -1;
    }

    // The column's texts in the draw rows 1 to `rows`.
    std::string Column(const std::string& heading, int rows) const {
        std::vector<std::string> texts;
        for (int row = 1; row <= rows; ++row) {
            texts.push_back(chart.grid.cell(row, ColumnOf(heading)));
        }
        return Join(texts, " ");
    }

    TestDatabase database = TestDatabase::Delivered();
    Session& session = database.session();
    MainTrendChart chart;
};

TEST_F(MainTrendChartTest, LaysOutDrawsPicksAndRates) {
    AddFive();
    ASSERT_TRUE(Build(" 2024001 ", "2024005"));
    const ResultGrid& grid = chart.grid;
    EXPECT_EQ(chart.caption, "走势图结果  [共5期]");
    EXPECT_EQ(chart.pickRowList, "06,07,08");
    EXPECT_EQ(grid.rows(), 11);
    EXPECT_EQ(grid.cols(), 69);
    EXPECT_EQ(grid.cell(0, 35), "33");
    EXPECT_EQ(grid.cell(1, 0), "24001");
    EXPECT_EQ(grid.cell(1, 1), "01,05,10,20,30,33");
    EXPECT_EQ(grid.cell(1, 2), "05");
    EXPECT_EQ(grid.cell(1, 7), "05");
    EXPECT_TRUE(grid.style(1, 7).bold);
    EXPECT_EQ(grid.cell(1, 8), "");
    EXPECT_EQ(Column("出球顺序", 2), "20,01,33,05,10,30 ");

    EXPECT_EQ(grid.cell(6, 1), "12024006期预选号");
    EXPECT_EQ(grid.cell(8, 1), "32024006期预选号");
    EXPECT_EQ(grid.rowHeight(8), 330);
    EXPECT_EQ(grid.cell(9, 1), "命中概率");
    // 5 and 10 three times in five draws, 2 never, 6 once.
    EXPECT_EQ(grid.cell(9, 7), "60");
    EXPECT_EQ(grid.cell(9, 4), "0");
    EXPECT_EQ(grid.cell(9, 8), "20");
    EXPECT_EQ(grid.style(9, 7).fore, (Rgb{255, 255, 255}));
    EXPECT_EQ(grid.style(9, 12).fore, (Rgb{255, 255, 255}));
    EXPECT_FALSE(grid.style(9, 3).fore);
    EXPECT_EQ(grid.style(9, 3).fontName, "Arial Narrow");
    EXPECT_EQ(grid.style(9, 3).fontSize, 8);
    EXPECT_EQ(grid.cell(10, 1), "");
}

TEST_F(MainTrendChartTest, CountersStartWhereTheirNeighboursDo) {
    AddFive();
    ASSERT_TRUE(Build("2024001", "2024005"));
    struct Expected {
        const char* heading;
        const char* counts;
        const char* rate;  // over the rows behind the leading ones
    };
    const Expected columns[] = {
        {"跳1", "0 0 3 3 1", "100"},                                   // 01 10 20; 05 12 31; 10
        {"跳2", "0 0 0 1 1", "100"},                                   // 30 of row 1; 21 of row 2
        {"跳3", "0 0 0 0 1", "100"},                                   // 33 of row 1
        {"边1", "0 3 3 2 0", "75"},                                    // 21 31 32; 06 11 20; 05 12
        {"横跳", "0 1 1 0 1", "60"},                                   // 03-05; 01-03; 08-10
        {"重号", "0 1 1 0 0", "50"},                                   // 05; 03
        {"对望", "1 1 1 1 0", "80"},                                   // 01-10; 12-21; 01-10; 13-31
        {"尾组", "4 4 4 6 6", "100"}, {"重尾", "0 3 2 3 4", "100"},    // 1 3 5; 1 3; 0 1 3; 0 1 3 4
        {"红蓝", "1 0 0 0 0", "20"},  {"隔期边", "0 0 1 3 3", "100"},  // 11; 13 30 31; 07 10 21
        {"1等距", "0 0 0 0 0", "0"},  // 03 of row 2 between 01 and 05 comes too early
        {"01距", "0 0 0 0 1", "20"},  // 07 08 10
    };
    for (const auto& [heading, counts, rate] : columns) {
        EXPECT_EQ(Column(heading, 5), counts) << heading;
        EXPECT_EQ(chart.grid.cell(6, ColumnOf(heading)), rate) << heading;
    }
    EXPECT_EQ(chart.grid.style(6, 40).fontName, "Arial Narrow");
}

TEST_F(MainTrendChartTest, ColoursBandsAndTheRowsBeforeTheLast) {
    AddFive();
    ASSERT_TRUE(Build("2024001", "2024005"));
    const ResultGrid& grid = chart.grid;
    const Rgb band{153, 51, 102};
    for (const int col : {3, 9, 17, 23, 31, 35}) EXPECT_EQ(grid.style(9, col).back, band) << col;
    for (const int col : {2, 10, 16, 24, 30, 36}) EXPECT_FALSE(grid.style(9, col).back) << col;
    EXPECT_FALSE(grid.style(0, 3).back);
    EXPECT_FALSE(grid.style(10, 3).back);  // the row added last

    const Rgb lastButOne{199, 199, 44};
    const Rgb lastButTwo{236, 241, 241};
    EXPECT_EQ(grid.style(4, 7).fore, lastButOne);   // 05 in row 4 only
    EXPECT_EQ(grid.style(4, 35).fore, lastButOne);  // 33 in row 5 only: an empty cell
    EXPECT_FALSE(grid.style(3, 35).fore);           // rows 3 and 4 agree
    EXPECT_EQ(grid.style(3, 8).fore, lastButTwo);   // 06 in row 3 only
    EXPECT_FALSE(grid.style(4, 8).fore);
    EXPECT_FALSE(grid.style(3, 12).fore);  // 10 in rows 3 and 5
    EXPECT_FALSE(grid.style(2, 5).fore);
}

TEST_F(MainTrendChartTest, ShortSeriesStandAndRatesOverNothingShowADash) {
    AddDraw("2024001", "2024-01-02", 3, 5, "01,02,03,11,12,21");
    AddDraw("2024002", "2024-01-04", 5, 5, "04,05,14,15,24,31");
    ASSERT_TRUE(Build("2024001", "2024002"));
    EXPECT_EQ(chart.pickRowList, "03,04,05");
    EXPECT_EQ(chart.grid.cell(3, ColumnOf("跳1")), "-");   // 0 of 0 rows
    EXPECT_EQ(chart.grid.cell(3, ColumnOf("跳2")), "0");   // 0 of -1 rows
    EXPECT_EQ(chart.grid.cell(3, ColumnOf("尾组")), "0");  // three groups are no occurrence
    EXPECT_EQ(chart.grid.cell(3, ColumnOf("重尾")), "0");  // nor is one repeated tail
    EXPECT_EQ(chart.grid.style(1, 3).fore, (Rgb{199, 199, 44}));
    ASSERT_TRUE(Build("2024002", "2024002"));
    EXPECT_EQ(chart.grid.rows(), 7);
    EXPECT_EQ(chart.grid.cell(5, 6), "100");
    for (int col = 0; col < chart.grid.cols(); ++col) EXPECT_FALSE(chart.grid.style(0, col).fore);
}

TEST_F(MainTrendChartTest, TypesChooseTheSeries) {
    const std::string reds = "01,02,03,04,05,06";
    AddDraw("2022006", "2022-01-14", 6, 1, reds, "null", 12);
    AddDraw("2023006", "2023-01-15", 1, 1, reds, "null", 24);
    AddDraw("2023016", "2023-02-12", 1, 1, reds, "null", 22);
    AddDraw("2023031", "2023-03-21", 3, 1, reds, "null", 30);
    AddDraw("2023085", "2023-07-25", 3, 1, reds, "null", 2);
    AddDraw("2024004", "2024-01-09", 3, 1, reds, "null", 28);
    AddDraw("2024005", "2024-01-11", 5, 1, reds, "null", 4);
    struct Series {
        int type;
        const char* start;
        const char* end;
        const char* issues;
    };
    // 2024005 stands on a Thursday: the next issue is 2024006, on Sunday 14 January 2024, the
    // fourth lunar day. Behind 2023031 comes a Thursday, the second day of a leap month.
    const Series series[] = {
        {0, "2023016", "2024004", "23016 23031 23085 24004"},
        {1, "", "2024005", "22006 23006"},
        {2, "2024001", "2024005", "22006 23006 23016"},
        {3, "2023001", "2024005", "23031 23085 24005"},
        {4, "2023001", "2024005", "23006 23016 24004"},
        {5, "2024001", "2024005", "22006"},
        {6, "2024001", "2024005", "24005"},
        {6, "2024001", "2023031", "23085"},
        {7, "2023010", "2024005", "23016"},
    };
    for (const Series& s : series) {
        ASSERT_TRUE(Build(s.start, s.end, s.type)) << s.type;
        std::vector<std::string> issues;
        for (int row = 1; row < chart.grid.rows() - 5; ++row) {
            issues.push_back(chart.grid.cell(row, 0));
        }
        EXPECT_EQ(Join(issues, " "), s.issues) << "type " << s.type;
    }
}

TEST_F(MainTrendChartTest, FailuresTellAndKeepTheOldChart) {
    AddFive();
    ASSERT_TRUE(Build("2024001", "2024005"));
    EXPECT_FALSE(Build("2024005", "2024001"));
    EXPECT_THAT(database.host().Texts(), ElementsAre("无数据！"));
    EXPECT_FALSE(Build("2024001", "2024999"));  // no such draw, so no next issue
    EXPECT_FALSE(Build("一", "2024005"));
    EXPECT_EQ(database.host().boxes.size(), 3U);
    EXPECT_EQ(chart.grid.rows(), 11);
    EXPECT_EQ(chart.pickRowList, "06,07,08");
}

TEST(TogglePick, SetsAndEmptiesByTheTextOfTheRows) {
    ResultGrid grid(110, 69, 1, 3);
    const std::string rows = "101,102,103";
    TogglePick(grid, rows, 101, 3);
    EXPECT_EQ(grid.cell(101, 3), "01");
    EXPECT_TRUE(grid.style(101, 3).bold);
    EXPECT_EQ(grid.style(101, 3).fore, (Rgb{200, 200, 200}));
    TogglePick(grid, rows, 101, 3);
    EXPECT_EQ(grid.cell(101, 3), "");
    TogglePick(grid, rows, 103, 35);
    TogglePick(grid, rows, 103, 36);  // behind the numbers
    TogglePick(grid, rows, 104, 3);   // no pick row
    TogglePick(grid, rows, 10, 0);    // 10 occurs in the text, and there is no first column
    grid.SetCell(101, 1, "label");
    TogglePick(grid, rows, 101, 1);
    EXPECT_EQ(grid.cell(103, 35) + grid.cell(103, 36) + grid.cell(104, 3), "33");
    EXPECT_EQ(grid.cell(10, 0), "-02");
    EXPECT_EQ(grid.cell(101, 1), "");
}

}  // namespace
}  // namespace ssq
