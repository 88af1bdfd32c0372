#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "base/text.h"
#include "stats/EdgeCodes.h"
#include "stats/FollowStatistics.h"
#include "stats/HeatRanking.h"
#include "stats/RedCombinations.h"
#include "support/TestDatabase.h"
#include "ui/Run.h"

namespace ssq {
namespace {

using testing::ElementsAre;

class Stats : public testing::Test {
  protected:
    // Issues from 2003001 on.
    void AddDraws(const std::vector<std::string>& reds) {
        int issue = 2003001;
        for (const std::string& draw : reds) database.AddDraw(issue++, "2003-04-01", draw, 7);
    }

    // The cells from `first` to `last` of a row, blanks between.
    static std::string Cells(const ResultGrid& grid, int row, int first, int last) {
        std::vector<std::string> texts;
        for (int col = first; col <= last; ++col) texts.push_back(grid.cell(row, col));
        return Join(texts, " ");
    }

    static std::set<int> Painted(const ResultGrid& grid, int row, Rgb back) {
        std::set<int> cols;
        for (int col = 0; col < grid.cols(); ++col) {
            if (grid.style(row, col).back == back) cols.insert(col);
        }
        return cols;
    }

    std::vector<std::string> TakeTexts() {
        auto texts = database.host().Texts();
        database.host().boxes.clear();
        return texts;
    }

    TestDatabase database;
    Session& session = database.session();
    ssq::Run run{database.host()};
    const Rgb hit{0xD7, 0x85, 0x6E};
    const Rgb repeat{0xAB, 0xA6, 0xEF};
};

TEST_F(Stats, HeatComesFromTheDrawsBeforeEachRow) {
    AddDraws({"01,02,03,04,05,06", "02,03,04,05,06,33", "02,07,08,09,10,33"});
    const auto rank = [&](const char* start, const char* window) {
        return BuildHeatRanking(session, {{start, "2003003"}, window}, run).report->grid;
    };
    ResultGrid grid = rank("2003001", "5");
    ASSERT_EQ(grid.rows(), 6);
    EXPECT_EQ(Cells(grid, 1, 2, 8), "01 02 03 04 05 06 07");
    EXPECT_TRUE(grid.style(1, 2).fore && grid.style(3, 10).fore);
    EXPECT_FALSE(grid.style(3, 8).fore);
    EXPECT_EQ(Cells(grid, 2, 35, 41), "02,03,04,05,06,33 5 0 0 0 1 5");
    EXPECT_EQ(Cells(grid, 3, 2, 9), "02 03 04 05 06 01 33 07");
    EXPECT_EQ(Painted(grid, 3, hit), (std::set<int>{2, 8, 9, 10, 11, 12}));
    EXPECT_EQ(Cells(grid, 3, 35, 41), "01,07,08,09,10,11 2 4 0 0 0 0");  // 33 moved, 01 was none
    EXPECT_EQ(Cells(grid, 4, 1, 5), "2003004期统计 02 03 04 05");
    EXPECT_EQ(Cells(grid, 5, 35, 41), " 100 33.33 0 0 33.33 33.33");

    // Two draws before the last one, so that its own window leaves out the oldest.
    grid = rank("2003003", kWholeHistory);
    EXPECT_EQ(Cells(grid, 2, 2, 5), "02 33 03 04");
    EXPECT_EQ(database.Run("select count(*) from rtoc").Int(0), 12);
    EXPECT_EQ(Cells(rank("2003004", "1"), 2, 35, 41), " - - - - - -");

    const HeatCourse course = HeatCourseOf(rank("2003001", "5"), "33");
    EXPECT_EQ(course.range, "03001--03003期");
    EXPECT_THAT(course.positions, ElementsAre(33, 33, 7, 6));
    EXPECT_THAT(course.labels, ElementsAre("1", "●", "●", "4"));
    EXPECT_EQ(HeatCourseOf(grid, "03").labels.back(), "●");  // its digits stand in 2003004
}

TEST_F(Stats, AHeatRunStopsAtItsFirstRowWithoutItsTable) {
    AddDraws({"01,02,03,04,05,06", "02,03,04,05,06,33"});
    EXPECT_FALSE(BuildHeatRanking(session, {{"2003001", "2003003"}, "3"}, run).report);
    EXPECT_THAT(TakeTexts(), ElementsAre("期号填写错误！"));
    database.Run("drop table rtoc");
    const HeatOutcome outcome = BuildHeatRanking(session, {{"2003001", "2003002"}, "3"}, run);
    EXPECT_TRUE(outcome.failed);
    ASSERT_TRUE(outcome.report);
    EXPECT_EQ(Cells(outcome.report->grid, 1, 0, 2), "03001 01,02,03,04,05,06 ");
    EXPECT_EQ(Cells(outcome.report->grid, 2, 0, 2), "  ");
    EXPECT_THAT(TakeTexts(), ElementsAre("保存数据失败：no such table: rtoc"));
}

TEST_F(Stats, EdgeCodesComeFromTheDrawSoManyRowsAbove) {
    AddDraws(std::vector<std::string>(11, "01,02,03,04,05,06"));
    database.AddDraw(2003012, "2003-04-01", "01,02,11,12,13,14", 7, "14,13,12,11,02,01");
    database.AddDraw(2003013, "2003-04-01", "01,03,10,20,30,33", 7);
    EdgeRequest request{.range = {"2003012", "2003013"}, .mode = ShiftMode::kMinus};
    const auto grid = [&] { return BuildEdgeCodes(session, request)->grid; };

    ResultGrid detail = grid();
    EXPECT_EQ(Cells(detail, 1, 2, 9), "2 33 01 02 03 04 05 0");
    EXPECT_EQ(Cells(detail, 2, 2, 9), "3 33 01 10 11 12 13 2");  // positions 2 and 3 again
    EXPECT_EQ(Painted(detail, 2, repeat), (std::set<int>{3, 4, 5}));
    EXPECT_EQ(Cells(detail, 3, 1, 9), "下一期  33 02 09 19 29 32 ");
    EXPECT_EQ(Cells(detail, 4, 1, 9), "概率 100 50 100 100 0 0 0 100");

    request.mode = ShiftMode::kBoth;
    detail = grid();
    EXPECT_EQ(Cells(detail, 0, 13, 17), "11 12 左中 右中 重号");
    EXPECT_EQ(Cells(detail, 2, 2, 5) + Cells(detail, 2, 14, 17), "4 33 02 0115 3 1 2");

    // Drawn order: the first two sources of the range have none.
    request.mode = ShiftMode::kPlus;
    request.drawnOrder = true;
    detail = grid();
    EXPECT_EQ(Cells(detail, 1, 1, 5), "14,13,12,11,02,01 0   ");
    EXPECT_EQ(Cells(detail, 2, 1, 5), " 0 15 14 13");
    EXPECT_EQ(Cells(detail, 4, 2, 9), "0 0 0 0 0 0 0 0");

    request.mode = ShiftMode::kMinus;
    request.view = EdgeView::kBySource;
    request.b = 14;  // behind the last offset: 1 to 6 become 20 to 25
    EXPECT_EQ(Cells(grid(), 2, 2, 5), "3 1 1 1");
    request.view = EdgeView::kByOffset;
    EXPECT_EQ(Cells(grid(), 2, 2, 4) + Cells(grid(), 0, 14, 16), "3 2 1边13 中0 中1");

    request.range = {"2003010", "2003013"};
    EXPECT_FALSE(BuildEdgeCodes(session, request));
    request.range = {"2003013", "2003012"};
    EXPECT_FALSE(BuildEdgeCodes(session, request));
    EXPECT_THAT(TakeTexts(), ElementsAre("数据不足！", "数据不足！"));
}

TEST_F(Stats, GapsAreMadeAnewAndSumsAreAppended) {
    AddDraws({"01,02,04,08,16,32", "02,03,05,09,17,33"});
    const PeriodRange range{"2003001", "2003003"};
    ASSERT_TRUE(BuildGaps(session, range));
    ASSERT_TRUE(BuildSums(session, range));
    database.Run("update jiangeTongji set a12=9");
    database.Run("update hezitj set a12=9");
    EXPECT_EQ(Cells(BuildGaps(session, range)->grid, 1, 2, 2), "9");  // not stale
    database.AddDraw(2003003, "2003-04-01", "04,05,06,07,08,24", 7);

    const ResultGrid gaps = BuildGaps(session, range)->grid;
    EXPECT_EQ(Cells(gaps, 0, 0, 8), "期号 开奖号码 a12 a23 a34 a45 a56 a13 a14");
    EXPECT_EQ(Cells(gaps, 2, 0, 8), "03002 02,03,05,09,17,33 0 1 3 7 15 2 6");
    EXPECT_EQ(Cells(gaps, 2, 17, 17) + Cells(gaps, 3, 17, 17), "152");
    EXPECT_EQ(Painted(gaps, 3, repeat), (std::set<int>{2, 6}));
    EXPECT_EQ(Cells(gaps, 4, 0, 3), "共3期 与上期重复概率 100 50");
    EXPECT_EQ(Cells(gaps, 5, 2, 4) + Cells(gaps, 5, 17, 17), "0 66.67 66.67");
    // All 15 gaps of the second draw repeat, the last of them uncounted; of the third two, a56 too.
    Recordset rows = database.Run("select ch from jiangeTongji order by kjqh");
    for (const char* repeated : {"0", "14", "1"}) {
        EXPECT_EQ(rows.Text(0), repeated);
        rows.MoveNext();
    }

    const ResultGrid sums = BuildSums(session, range)->grid;
    ASSERT_EQ(sums.cols(), 53);
    EXPECT_EQ(sums.cell(1, 2) + sums.cell(3, 2), "99");
    EXPECT_EQ(Cells(sums, 3, 48, 51), "42 43 44 45");
    EXPECT_EQ(Cells(BuildSums(session, {"2003003", "2003003"})->grid, 2, 1, 3),
              "与上期重复概率 - -");
}

TEST_F(Stats, FollowCountsEachPartOfAnyList) {
    AddDraws({"01,02,03,04,05,06", "07,08,09,10,11,12"});
    const PeriodRange range{"2003001", "2003002"};
    const auto follow = [&](const char* list, int size) {
        return BuildFollowStatistics(session, {range, list, size}, run)->grid;
    };
    ResultGrid grid = follow("1,2,,2,40", 2);
    EXPECT_EQ(Cells(grid, 0, 2, 8), "全码 01,02 01,02 01,40 02,02 02,40 02,40");
    EXPECT_EQ(Cells(grid, 1, 2, 8), "3 2 2 1 2 1 1");
    EXPECT_EQ(Painted(grid, 1, Rgb{0xEC, 0xF1, 0xC8}), (std::set<int>{3, 4, 6}));
    EXPECT_EQ(Cells(grid, 3, 0, 3), "共2期 命中率 50 50");
    EXPECT_EQ(follow("9", 2).cols(), 3);
    grid = follow("01,02,03,04,05,06,07", 3);
    EXPECT_EQ(grid.cols(), 3 + 35);
    EXPECT_EQ(grid.cell(0, 37), "05,06,07");
    EXPECT_FALSE(BuildFollowStatistics(session, {range, ",", 1}, run));

    for (const char* good : {"1,2", "1,,2", " 07 "})
        EXPECT_TRUE(CheckNumberList(session.host, good));
    for (const char* bad : {"", "a,b", "1 2"}) EXPECT_FALSE(CheckNumberList(session.host, bad));
    EXPECT_THAT(TakeTexts(), testing::Each("应该输入数字!"));
}

}  // namespace
}  // namespace ssq
