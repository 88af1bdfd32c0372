#include "workbench/FormulaFilters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "workbench/WorkbenchData.h"

namespace ssq {
namespace {

using testing::ElementsAre;

TEST(FormulaThreshold, ReadsTheTextsOfTheWorkbench) {
    struct Case {
        const FormulaFilter& filter;
        const char* text;
        FormulaThreshold threshold;
    };
    const Case cases[] = {
        {kGapFilter, "10", 10},       {kGapFilter, " -5 ", 5},
        {kGapFilter, "1e1", 10},      {kGapFilter, "5次", 0},
        {kGapFilter, "", 0},          {kGapFilter, " 最大遗漏 ", std::nullopt},
        {kGapFilter, "最大连出", 0},  {kRunFilter, "最大连出", std::nullopt},
        {kRateFilter, "99.5%", 99.5}, {kRateFilter, "-5", -5},
        {kRateFilter, "最大遗漏", 0}, {kRateFilter, "", 0},
    };
    for (const Case& c : cases) EXPECT_EQ(ThresholdOf(c.filter, c.text), c.threshold) << c.text;
}

class Filters : public testing::Test {
  protected:
    Filters() {
        AddTwentyDraws(database);
        //       key     count rate     maxRun maxGap run gap
        Put(1, {"Q1B1", "8", "88.89", "3", "4", "4", "0", "04,09,14,19,24,32", "3"});
        Put(2, {"Q1B2", "5", "55.56", "2", "5", "0", "5", "03,08,13,18,23,31", "1"});
        Put(3, {"Q2B3", "1", "11.11", "0", "2", "0", "6", "01,06,11,17,23,28", "0"});
        Put(4, {"Q9B1", "9", "100", "9", "0", "9", "0", "33,01,02,03,04,05", "1"});
    }
    void Put(int row, const std::vector<std::string>& cells) {
        for (std::size_t col = 0; col < cells.size(); ++col) {
            statistics.SetCell(row, static_cast<int>(col), cells[col]);
        }
    }
    static std::vector<std::string> Column(const ResultGrid& grid, int col) {
        std::vector<std::string> cells;
        cells.reserve(static_cast<std::size_t>(grid.rows()));
        for (int row = 1; row < grid.rows(); ++row) cells.push_back(grid.cell(row, col));
        return cells;
    }

    TestDatabase database;
    Session& session = database.session();
    ResultGrid statistics{6, kStatisticsColumns, 1, 0};  // the last row is empty
};

TEST_F(Filters, PassFormulasByThresholdOrMaximum) {
    struct Case {
        const FormulaFilter& filter;
        const char* text;
        std::vector<std::string> keys;
        std::vector<std::string> excess;
    };
    const Case cases[] = {
        {kGapFilter, "5", {"Q1B2", "Q2B3"}, {"0", "4"}},
        {kGapFilter, "最大遗漏", {"Q2B3"}, {"4"}},  // at its maximum is not above it
        {kGapFilter, "-6", {"Q2B3"}, {"4"}},
        {kGapFilter, "?", {"Q1B1", "Q1B2", "Q2B3", "Q9B1", ""}, {"-4", "0", "4", "0", "0"}},
        {kRunFilter, "4", {"Q1B1", "Q9B1"}, {"1", "0"}},
        {kRunFilter, "最大连出", {"Q1B1"}, {"1"}},
        {kRateFilter, "55.56", {"Q1B1", "Q1B2", "Q9B1"}, {"1", "-2", "0"}},
        {kRateFilter, "", {"Q1B1", "Q1B2", "Q2B3", "Q9B1", ""}, {"1", "-2", "0", "0", "0"}},
    };
    for (const Case& c : cases) {
        const auto report = FilterForWorkbench(session, statistics, "2003018", c.filter, c.text);
        ASSERT_TRUE(report);
        EXPECT_EQ(Column(report->grid, 0), c.keys) << c.text;
        EXPECT_EQ(Column(report->grid, 7), c.excess) << c.text;

        const auto screen = FilterForOmissionScreen(session, statistics, "2003018", "<=1", c.filter,
                                                    ThresholdOf(c.filter, c.text));
        ASSERT_TRUE(screen);
        for (int row = 1; row < report->grid.rows(); ++row) {
            EXPECT_EQ(Row(screen->grid, row), Row(report->grid, row)) << c.text;
        }
        EXPECT_EQ(screen->grid.rows(), report->grid.rows());
    }
}

TEST_F(Filters, NeedStatistics) {
    EXPECT_FALSE(FilterForWorkbench(session, {}, "2003018", kGapFilter, "1"));
    EXPECT_FALSE(FilterForOmissionScreen(session, {}, "2003018", "<=1", kGapFilter, 1));
    EXPECT_FALSE(FilterForWorkbench(session, statistics, "x", kGapFilter, "1"));
    EXPECT_THAT(database.host().Texts(),
                ElementsAre("没有统计数据！", "没有数据！", "期号填写错误！"));
}

}  // namespace
}  // namespace ssq
