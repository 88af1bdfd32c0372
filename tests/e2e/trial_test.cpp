// The blind test through the real window: settings, remarks and their links, stopping, refusals.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class BlindTestRoad : public testing::Test {
  protected:
    Reply Test(const char* method, const char* draws = "100期") {
        driver.Set("cboFangFa", method);
        driver.Set("cboN", draws);
        return driver.Click("Command1");
    }
    // The row of the grid that has this text in its second column.
    int RowOf(const Reply& grid, const std::string& text) {
        int row = grid.Rows() - 1;
        while (row > 0 && grid.Cell(row, 1) != text) --row;
        return row;
    }

    DriverClient driver;
};

// What learning names for the next issue is what the blind test predicts for it, and the remark's
// link brings the settings along.
TEST_F(BlindTestRoad, SaysWhatTheMainWindowSaysAndChangesNothing) {
    EXPECT_EQ(driver.Text("lblJiHui"), "");
    driver.Menu("m_xuexi");
    EXPECT_THAT(driver.Text("lblJiHui"), AllOf(HasSubstr("三组平均命中 "), HasSubstr("。 盲测")));
    const Reply learned = driver.Grid("vs1");
    const int next = RowOf(learned, "2026115期推荐胆码");
    const Json stored = driver.Sql("select gs,rate from trate order by gs");

    driver.Click("lblJiHui");
    EXPECT_EQ(driver.Text("frmMangCe"), "盲测：看看公式值多少");
    EXPECT_EQ(driver.Text("txtXXQS"), "30");
    EXPECT_EQ(driver.Text("cboDMGS"), "3胆");
    EXPECT_FALSE(driver.Shows("cboSmGs"));
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre());
    const Reply grid = driver.Grid("vs1");
    const int row = RowOf(grid, "2026115期");
    for (int group = 0; group < 3; ++group) {
        const int first = 2 + 4 * group;
        EXPECT_EQ(grid.Cell(row, 2 + 3 * group), learned.Cell(next, first) + "," +
                                                     learned.Cell(next, first + 1) + "," +
                                                     learned.Cell(next, first + 2));
    }
    EXPECT_EQ(driver.Text("Frame2"), "盲测结果  最近100期，每期只用它之前的开奖来学习");
    const Reply chart = driver.Do({{"do", "chart"}, {"control", "ZST"}});
    EXPECT_EQ(chart["labels"].size(), 100U);
    EXPECT_EQ(chart["tracks"].size(), 3U);
    const double rate = std::stod(grid.Cell(row + 1, 2));
    const double chance = std::stod(grid.Cell(row + 2, 2));
    EXPECT_NEAR(chart["tracks"][0]["values"].back().get<double>(), rate - chance, 0.02);
    EXPECT_EQ(driver.Sql("select gs,rate from trate order by gs"), stored);
}

TEST_F(BlindTestRoad, TakesTheSettingsOfARemarkAndCountsTheTested) {
    driver.Menu("m_sdsh");
    driver.Set("cboWhere", ">=");
    driver.Set("CboNUM", "2");
    driver.Click("Command1");
    driver.Click("lblJiHui");
    EXPECT_EQ(driver.Text("cboFangFa"), "单条公式");
    EXPECT_EQ(driver.Text("cboWhere") + driver.Text("CboNUM"), ">=2");
    EXPECT_EQ(driver.Text("cboFxqs"), "全部");

    driver.Set("cboFxqs", "20");
    for (const char* method : {"单条公式", "智能围红", "智能围红", "智能围蓝", "冷热号码"}) {
        EXPECT_THAT(Test(method, "50期").Messages(), ElementsAre());
        EXPECT_THAT(driver.Text("lblJieGuo"), Not(HasSubstr("种设置"))) << method;
    }
    Test("冷热号码");
    EXPECT_THAT(driver.Text("lblJieGuo"), HasSubstr("已经测了 5 种设置。"));
}

TEST_F(BlindTestRoad, RefusesWhatItCannotTest) {
    driver.Menu("m_mangce");
    EXPECT_THAT(Test("选号方案").Messages(), ElementsAre("选号台里还没有方案！"));
    driver.Menu("m_xuanhao");
    driver.Set("txtFangAn", "红球 01-28\n和值 9x");
    driver.Panel("frmMangCe");
    EXPECT_THAT(Test("选号方案").Messages(), ElementsAre(HasSubstr("第2行")));
    driver.Set("cboFangFa", "胆码学习");
    driver.Set("txtXXQS", "101");
    EXPECT_THAT(Test("胆码学习").Messages(), ElementsAre("期数不能超过100期！"));
    driver.Set("cboFangFa", "冷热号码");
    for (const char* draws : {"0", "-3", "十"}) {
        driver.Set("cboFxqs", draws);
        EXPECT_THAT(Test("冷热号码").Messages(), ElementsAre("分析期数填写错误！"));
    }
    driver.Sql("delete from cphm");
    EXPECT_THAT(Test("智能围红").Messages(), ElementsAre("数据不足！"));
    EXPECT_EQ(driver.Text("lblJieGuo"), "");
}

TEST_F(BlindTestRoad, StopsAndEndsInMidRun) {
    driver.Menu("m_mangce");
    driver.Set("cboFangFa", "杀码学习");
    driver.Set("cboSmGs", "杀24码");
    driver.Set("txtXXQS", "60");
    driver.Set("txtGL", "10");
    driver.Set("cboN", "全部");
    const auto during = [this](const Json& command) {
        driver.Do({{"do", "during"}, {"after", 100}, {"command", command}});
    };
    during({{"do", "click"}, {"control", "Command1"}});
    driver.Click("Command1");
    EXPECT_EQ(driver.Text("Command1"), "开始盲测");
    EXPECT_EQ(driver.Text("lblJieGuo"), "");
    EXPECT_FALSE(driver.Shows("frmMsg"));
    during({{"do", "close"}});
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre());
    driver.Menu("m_mangce");
    EXPECT_THAT(Test("智能围蓝").Messages(), ElementsAre());
    EXPECT_THAT(driver.Text("lblJieGuo"), HasSubstr("围住蓝球：中 "));
}

}  // namespace
}  // namespace ssq
