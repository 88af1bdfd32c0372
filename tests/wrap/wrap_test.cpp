#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "draws/Public_var.h"
#include "support/TestDatabase.h"
#include "ui/Run.h"
#include "ui/palette.h"
#include "wrap/BlueWrap.h"
#include "wrap/RedWrap.h"

namespace ssq {
namespace {

TEST(BlueWrap, FollowsTheLastFourBlues) {
    struct Case {
        int a, b, c, d;
        bool isNear;
        const char* text;
    };
    for (const Case& c : {
             Case{1, 9, 9, 5, false, "05,06,07,08,10,11,12,13,14,15,16"},
             Case{8, 8, 3, 1, true, "08,09,07,10,06,11,05"},
             Case{5, 6, 9, 1, true, "05,06,09,06,04,07,03,08,02"},
             Case{16, 1, 1, 16, true, "16,01,01,15,14,13"},
             Case{12, 8, 12, 1, true, "12,08,13,11,14,10,15,09"},
             Case{12, 8, 7, 1, false, "01,02,03,04,05,06,16"},
         }) {
        const BlueWrapResult wrap = BlueWrap(c.a, c.b, c.c, c.d);
        EXPECT_EQ(wrap.Near, c.isNear) << c.text;
        EXPECT_EQ(wrap.text, c.text);
    }
}

class WrapTables : public testing::Test {
  protected:
    TestDatabase database_ = TestDatabase::Delivered();
    ssq::Run run_{database_.host()};
};

TEST_F(WrapTables, ABlueBehindTheNinthItemIsNoHit) {
    TestDatabase own;
    int issue = 2003001;
    for (const int blue : {5, 9, 9, 1, 15, 14, 10, 14}) {
        own.AddDraw(issue, "2003-03-0" + std::to_string(issue - 2003000), "01,02,03,04,05,06",
                    blue);
        ++issue;
    }
    const auto report = BuildBlueWrap(own.session(), {"2003005", "2003008"});
    ASSERT_TRUE(report);
    const ResultGrid& grid = report->grid;
    // Before 2003005 stand 1, 9, 9, 5: 15 is in the wrap, in tenth place.
    EXPECT_EQ(grid.cell(1, 10), "14");
    EXPECT_EQ(grid.cell(1, 11), "×");
    // 15, 1, 9, 9 is far, and 14 outside; 14, 15 is near, 10 outside; 10, 14, 15, 1 is far.
    EXPECT_EQ(grid.cell(2, 11), "×");
    EXPECT_EQ(grid.cell(3, 11), "×");
    EXPECT_EQ(grid.cell(4, 11), "×");
    EXPECT_EQ(grid.cell(5, 1), "围蓝");
    EXPECT_EQ(grid.cell(5, 0), "2003009");
    // 14, 10, 14: near by c, which then stands only once.
    EXPECT_EQ(grid.cell(5, 2) + grid.cell(5, 3) + grid.cell(5, 4), "141015");
}

TEST_F(WrapTables, RefusalsSayWhy) {
    Session& session = database_.session();
    EXPECT_FALSE(BuildRedWrap(session, {"2003016", "2003100"}, run_));
    EXPECT_FALSE(BuildRedWrap(session, {"2010020", "2010010"}, run_));
    EXPECT_FALSE(BuildRedWrap(session, {"2010001", "2010014"}, run_));
    EXPECT_TRUE(BuildRedWrap(session, {"2010001", "2010015"}, run_));
    EXPECT_FALSE(BuildBlueWrap(session, {"2010001", "2010003"}));
    EXPECT_FALSE(BuildBlueWrap(session, {"2003004", "2003100"}));
    EXPECT_FALSE(BuildBlueWrap(session, {"2009154", "2010002"}));
    EXPECT_FALSE(BuildBlueWrap(session, {"x", "2010003"}));
    const char* few = "数据不足！";
    EXPECT_THAT(
        database_.host().Texts(),
        testing::ElementsAre("数据不足，请将起始期号调整到2003016期以后！", few,
                             "数据不足，请至少选择15期！", few, few, few, "期号填写错误！"));
}

TEST_F(WrapTables, TheRedTableMarksWhatWasCaught) {
    const auto report = BuildRedWrap(database_.session(), {"2026001", "2026030"}, run_);
    ASSERT_TRUE(report);
    const ResultGrid& grid = report->grid;
    ASSERT_EQ(grid.rows(), 33);
    int marked = 0;
    for (int row = 1; row <= 30; ++row) {
        int hits = 0;
        for (int col = 2; col < 20; ++col) {
            if (grid.style(row, col).back != kDrawnMark) continue;
            EXPECT_TRUE(Contains(grid.cell(row, 1), grid.cell(row, col)));
            ++hits;
        }
        EXPECT_EQ(grid.cell(row, 20), std::to_string(hits));
        marked += hits;
    }
    EXPECT_GT(marked, 0);
    EXPECT_EQ(grid.cell(31, 1), "下期预测号码");
    EXPECT_EQ(grid.cell(31, 20), "");
}

}  // namespace
}  // namespace ssq
