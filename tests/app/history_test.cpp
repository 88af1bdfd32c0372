#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/DrawHistory.h"
#include "store/SqlConn.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct RangeCase {
    const char* from;
    const char* to;
    const char* message;  // empty: the pair is good
};

TEST(NumberRange, ChecksFilledThenNumericThenOrdered) {
    constexpr const char* kEmpty = "起始奖池额或结束奖池额不能为空！";
    constexpr const char* kNoNumber = "起始奖池额或结束奖池额必须为数字！";
    constexpr const char* kReversed = "起始奖池额不能大于结束奖池额！";
    for (const RangeCase& pair : std::vector<RangeCase>{
             {"", "5", kEmpty},
             {"abc", " ", kEmpty},
             {"abc", "5", kNoNumber},
             {"5", "1,2x", kNoNumber},
             {"1 or 1=1", "5", kNoNumber},
             {"5", "3", kReversed},
             {"1,000", "999", kReversed},
             {"1e3", "999", kReversed},
             {"-3", "-5", kReversed},
             {"5.9", "5.1", ""},  // whole parts are compared
             {" 3 ", "3", ""},
             {"999", "1,000", ""},
         }) {
        TestHost host;
        const bool good = CheckNumberRange(host, pair.from, pair.to, "起始奖池额", "结束奖池额");
        EXPECT_EQ(good, *pair.message == '\0') << pair.from << " to " << pair.to;
        if (good) {
            EXPECT_THAT(host.Texts(), IsEmpty()) << pair.from;
        } else {
            EXPECT_THAT(host.Texts(), ElementsAre(pair.message)) << pair.from;
        }
    }
}

TEST(HistoryGrid, ShowsTheFieldsAndMarksLargePoolsAndRatios) {
    const Value null;
    const auto draw = [&](std::int64_t issue, Value blue, Value pool, Value ratio) {
        return std::vector<Value>{issue, "01,02,03,04,05,06", blue, null, 1.5, 2.0, pool, 3.25,
                                  ratio};
    };
    std::vector<Value> values;
    for (const auto& row :
         {draw(2013001, std::int64_t{5}, 200000000.0, 49.99),
          draw(2013002, std::int64_t{16}, std::int64_t{199999999}, std::int64_t{50}),
          draw(2013003, null, null, null)}) {
        values.insert(values.end(), row.begin(), row.end());
    }
    Recordset draws({"开奖期号", "红球", "蓝球", "顺序", "e", "f", "下期奖池", "h", "返奖比例"},
                    values);
    const ResultGrid grid = HistoryGrid(draws);

    ASSERT_EQ(grid.rows(), 4);
    ASSERT_EQ(grid.cols(), 9);
    EXPECT_EQ(grid.fixedRows(), 1);
    EXPECT_EQ(grid.fixedCols(), 3);
    EXPECT_EQ(grid.cell(0, 6), "下期奖池");
    const std::vector<std::string> first = {"2013001", "01,02,03,04,05,06", "05",   "",     "1.5",
                                            "2",       "200000000",         "3.25", "49.99"};
    for (int col = 0; col < grid.cols(); ++col) EXPECT_EQ(grid.cell(1, col), first[col]) << col;
    EXPECT_EQ(grid.cell(2, 2), "16");
    EXPECT_EQ(grid.cell(3, 2), "");

    const Rgb mark{0xBB, 0xDF, 0xE6};
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            const bool marked = (row == 1 && col == 6) || (row == 2 && col == 8);
            EXPECT_EQ(grid.style(row, col).back, marked ? std::optional(mark) : std::nullopt)
                << row << "," << col;
        }
    }
    const std::vector<int> widths = {900, 1800, 550, 1800, 1500, 1500, 1500, 1500, 1500};
    for (int col = 0; col < grid.cols(); ++col) {
        EXPECT_EQ(grid.colWidth(col), widths[col]) << col;
        EXPECT_EQ(grid.alignment(col), Align::kCentre) << col;
    }
    EXPECT_EQ(grid.rowHeight(3), 300);
}

// The issues that a request lists, in the order of the grid.
std::vector<std::string> Issues(TestDatabase& database, const HistoryRequest& request) {
    ResultGrid grid;
    EXPECT_TRUE(ShowHistory(database.session(), request, grid));
    std::vector<std::string> issues;
    for (int row = 1; row < grid.rows(); ++row) issues.push_back(grid.cell(row, 0));
    return issues;
}

// The draws of a range whose field, read one by one, lies within the limits.
std::vector<std::string> IssuesByHand(TestDatabase& database, const PeriodRange& range,
                                      const char* field, double from, double to) {
    Recordset rows;
    std::vector<std::string> issues;
    EXPECT_TRUE(QueryOrTell(database.session(), "select * from cpInfo", rows));
    for (; !rows.eof(); rows.MoveNext()) {
        const std::string issue = rows.Text("开奖期号");
        if (issue < range.start || issue > range.end || rows.IsNull(field)) continue;
        if (rows.Number(field) >= from && rows.Number(field) <= to) issues.push_back(issue);
    }
    return issues;
}

TEST(ShowHistory, FiltersByWhatTheTextsMeanAsNumbers) {
    TestDatabase database = TestDatabase::Delivered();
    const PeriodRange range{"2013001", "2013151"};
    const auto all = Issues(database, {range, {}, {}});
    EXPECT_GT(all.size(), 100U);

    const auto pools = IssuesByHand(database, range, "下期奖池", 1e8, 3e8);
    ASSERT_FALSE(pools.empty());
    ASSERT_LT(pools.size(), all.size());
    EXPECT_EQ(Issues(database, {range, {true, " 100,000,000", "3e8 "}, {}}), pools);

    const auto prizes = IssuesByHand(database, range, "一等注数", 5, 9);
    ASSERT_FALSE(prizes.empty());
    ASSERT_LT(prizes.size(), all.size());
    EXPECT_EQ(Issues(database, {range, {}, {true, "5", "9"}}), prizes);
    EXPECT_THAT(database.host().Texts(), IsEmpty());
}

TEST(ShowHistory, RefusedRequestsLeaveTheGridAndReversedOnesHaveNoRows) {
    TestDatabase database = TestDatabase::Delivered();
    const PeriodRange range{"2013001", "2013010"};
    ResultGrid grid(7, 7, 1, 1);
    EXPECT_FALSE(ShowHistory(database.session(), {range, {true, "5", "3"}, {}}, grid));
    EXPECT_FALSE(ShowHistory(database.session(), {range, {}, {true, "5", ""}}, grid));
    EXPECT_FALSE(ShowHistory(database.session(), {{"", "2013010"}, {}, {}}, grid));
    EXPECT_EQ(grid.rows(), 7);
    EXPECT_THAT(database.host().Texts(),
                ElementsAre("起始奖池额不能大于结束奖池额！",
                            "起始一等注数或结束一等注数不能为空！", "期号填写错误！"));
    EXPECT_TRUE(ShowHistory(database.session(), {{range.end, range.start}, {}, {}}, grid));
    EXPECT_EQ(grid.rows(), 1);
}

}  // namespace
}  // namespace ssq
