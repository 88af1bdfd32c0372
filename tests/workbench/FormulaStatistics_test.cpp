#include "workbench/FormulaStatistics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "ui/Run.h"
#include "workbench/WorkbenchData.h"

namespace ssq {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FormulaStats, WalksTheHits) {
    struct Case {
        std::vector<int> hits;
        int total;
        int maxRun;
        int maxGap;
        int run;
        int gap;
    };
    const Case cases[] = {
        {{1, 2, 3, 5, 6}, 6, 3, 1, 2, 0},
        {{1, 2, 3, 4}, 4, 4, 0, 4, 0},  // on every draw
        {{1}, 1, 1, 0, 1, 0},           // the very first draw alone makes a run
        {{5}, 8, 0, 4, 0, 3},           // a lone hit does not; the gap at the end counts nowhere
        {{2, 4, 6}, 6, 0, 1, 1, 0},     // on the newest draw, never on two in a row
        {{4, 5, 9, 10, 11}, 20, 3, 3, 0, 9},  // the gap before the first hit
        {{}, 4, 0, 0, 0, 4},
    };
    for (const Case& c : cases) {
        FormulaStats stats;
        for (const int qid : c.hits) stats.Hit(qid);
        const std::string what = testing::PrintToString(c.hits);
        EXPECT_EQ(stats.count, static_cast<int>(c.hits.size())) << what;
        EXPECT_EQ(stats.maxRun, c.maxRun) << what;
        EXPECT_EQ(stats.maxGap, c.maxGap) << what;
        EXPECT_EQ(stats.CurrentRun(c.total), c.run) << what;
        EXPECT_EQ(stats.CurrentGap(c.total), c.gap) << what;
    }
}

class Statistics : public testing::Test {
  protected:
    std::optional<FormulaReport> Count(const std::string& end) {
        ssq::Run run(session.host);
        return FormulaStatistics(session, {"<=", 1}, end, run);
    }

    TestDatabase database;
    Session& session = database.session();
};

TEST_F(Statistics, ListsTheFormulasThatHit) {
    AddTwentyDraws(database);
    FillEdgeTable(database, 3);
    SetHits(database, "Q1B1", "101233310");
    SetHits(database, "Q2B3", "333331333");
    const auto report = Count("2003020");
    ASSERT_TRUE(report);
    const ResultGrid& grid = report->grid;
    EXPECT_EQ(report->nextDrawLine, " 下期期号：2003021  下期开奖号码：未开奖");
    EXPECT_EQ(grid.rows(), 131);
    EXPECT_EQ(grid.fixedRows(), 1);
    EXPECT_EQ(grid.fixedCols(), 0);
    EXPECT_THAT(Row(grid, 0),
                ElementsAre("公式编号", "出现次数", "出现概率", "最大连出", "最大遗漏", "当前连出",
                            "当前遗漏", "2003021期公式预测号码", "03021期命中"));
    EXPECT_THAT(Row(grid, 1), ElementsAre("Q1B1", "5", "55.56", "3", "4", "2", "0",
                                          "04,09,14,19,24,32", "未开奖"));
    EXPECT_THAT(Row(grid, 2), ElementsAre("Q2B3", "1", "11.11", "0", "5", "0", "3",
                                          "01,06,11,17,23,28", "未开奖"));
    for (int row = 3; row < grid.rows(); ++row) EXPECT_THAT(Row(grid, row), Each(""));
    // The rows tried, the one that the last formulas left free among them.
    EXPECT_EQ(grid.rowHeight(0), 400);
    EXPECT_EQ(grid.rowHeight(3), 300);
    EXPECT_EQ(grid.rowHeight(4), std::nullopt);
}

TEST_F(Statistics, RefusesWhatItCannotCount) {
    AddTwentyDraws(database);
    EXPECT_FALSE(Count("2003x20"));
    database.Run("delete from bmhz");
    database.Run("delete from cphm where kjqh<2003015");
    EXPECT_FALSE(Count("2003020"));
    session.connection.Close();
    EXPECT_FALSE(Count("2003020"));
    EXPECT_THAT(database.host().Texts(),
                ElementsAre("期号填写错误！", "数据不足！", "汇总数据出错！", "数据库错误！"));
}

}  // namespace
}  // namespace ssq
