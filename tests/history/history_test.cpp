#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "history/DrawHistory.h"
#include "store/SqlConn.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

TEST(NumberRange, ChecksFilledThenNumericThenOrdered) {
    const std::string empty = "起始奖池额或结束奖池额不能为空！";
    const std::string noNumber = "起始奖池额或结束奖池额必须为数字！";
    const std::string reversed = "起始奖池额不能大于结束奖池额！";
    for (const auto& [from, to, message] : std::vector<std::array<std::string, 3>>{
             {"", "5", empty},
             {"abc", " ", empty},
             {"abc", "5", noNumber},
             {"1 or 1=1", "5", noNumber},
             {"5", "3", reversed},
             {"1,000", "999", reversed},
             {"-3", "-5", reversed},
             {"5.9", "5.1", ""},  // whole parts are compared
             {" 3 ", "3", ""},
         }) {
        TestHost host;
        EXPECT_EQ(CheckNumberRange(host, from, to, "起始奖池额", "结束奖池额"), message.empty());
        const auto expected = message.empty() ? std::vector<std::string>{} : std::vector{message};
        EXPECT_EQ(host.Texts(), expected) << from << " to " << to;
    }
}

TEST(HistoryGrid, ShowsTheFieldsAndMarksLargePoolsAndRatios) {
    using Int = std::int64_t;
    const Value null;
    // Issue, reds, blue, order, two others, next pool, another, ratio.
    const std::vector<Value> values{
        Int{2013001}, "01,02", Int{5},  null, 1.5, 2.0, 200000000.0,    3.25, 49.99,
        Int{2013002}, "01,02", Int{16}, null, 1.5, 2.0, Int{199999999}, 3.25, Int{50},
        Int{2013003}, "01,02", null,    null, 1.5, 2.0, null,           3.25, null};
    Recordset draws({"开奖期号", "b", "c", "d", "e", "f", "下期奖池", "h", "返奖比例"}, values);
    const ResultGrid grid = HistoryGrid(draws);

    ASSERT_EQ(grid.rows(), 4);
    const Rgb mark{0xBB, 0xDF, 0xE6};
    EXPECT_EQ(grid.cell(0, 6), "下期奖池");
    EXPECT_EQ(grid.cell(2, 2) + grid.cell(3, 2), "16");
    const std::vector<std::string> first{"2013001", "01,02",     "05",   "",     "1.5",
                                         "2",       "200000000", "3.25", "49.99"};
    for (int col = 0; col < grid.cols(); ++col) {
        EXPECT_EQ(grid.cell(1, col), first[col]);
        for (int row = 0; row < grid.rows(); ++row) {
            const bool marked = (row == 1 && col == 6) || (row == 2 && col == 8);
            EXPECT_EQ(grid.style(row, col).back == mark, marked) << row << "," << col;
        }
    }
}

TEST(BuildHistory, FiltersByWhatTheTextsMeanAsNumbers) {
    TestDatabase database = TestDatabase::Delivered();
    const PeriodRange range{"2013001", "2013151"};
    // The query's draws against those found one by one.
    const auto check = [&](const NumberFilter& pool, const NumberFilter& prizes, const char* field,
                           double from, double to) {
        const auto report = BuildHistory(database.session(), {range, pool, prizes});
        ASSERT_TRUE(report);
        const ResultGrid& grid = report->grid;
        int row = 1;
        for (Recordset all = database.Run("select * from cpInfo"); !all.eof(); all.MoveNext()) {
            const std::string issue = all.Text("开奖期号");
            if (issue < range.start || issue > range.end || all.IsNull(field)) continue;
            if (all.Number(field) < from || all.Number(field) > to) continue;
            EXPECT_EQ(grid.cell(row++, 0), issue);
        }
        EXPECT_EQ(grid.rows(), row);
        EXPECT_GT(row, 1);
    };
    check({}, {}, "开奖期号", 0, 1e9);
    check({true, " 100,000,000", "3e8 "}, {}, "下期奖池", 1e8, 3e8);
    check({}, {true, "5", "9"}, "一等注数", 5, 9);
    EXPECT_TRUE(database.host().boxes.empty());
}

TEST(BuildHistory, RefusedRequestsGiveNothingAndReversedOnesHaveNoRows) {
    TestDatabase database = TestDatabase::Delivered();
    const PeriodRange range{"2013001", "2013010"};
    EXPECT_FALSE(BuildHistory(database.session(), {range, {true, "5", "3"}, {}}));
    EXPECT_FALSE(BuildHistory(database.session(), {range, {}, {true, "5", ""}}));
    EXPECT_FALSE(BuildHistory(database.session(), {{"", "2013010"}, {}, {}}));
    EXPECT_THAT(database.host().Texts(),
                testing::ElementsAre("起始奖池额不能大于结束奖池额！",
                                     "起始一等注数或结束一等注数不能为空！", "期号填写错误！"));
    const auto reversed = BuildHistory(database.session(), {{range.end, range.start}, {}, {}});
    ASSERT_TRUE(reversed);
    EXPECT_EQ(reversed->grid.rows(), 1);
}

}  // namespace
}  // namespace ssq
