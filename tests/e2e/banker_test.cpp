// The road of one recommendation through the real window, and the shell around it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "base/text.h"
#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

class BankerRoad : public testing::Test {
  protected:
    void SetSettings(const char* periods, int bankers) {
        driver.Menu("m_rs");
        driver.Set("Text1", periods);
        driver.Choose("cboDMGS", bankers - 1);
        EXPECT_EQ(driver.Click("Command1")["modal"], nullptr);
    }

    DriverClient driver;
};

TEST_F(BankerRoad, LearnsRecommendsAndLogs) {
    SetSettings("50", 5);
    EXPECT_THAT(driver.Menu("m_xuexi").Messages(), ElementsAre());
    const Reply grid = driver.Grid("vs1");
    ASSERT_EQ(grid.Rows(), 54);
    EXPECT_EQ(grid["cols"], 20);
    EXPECT_EQ(grid.Cell(0, 0), "开奖号码区");
    EXPECT_EQ(grid.Cell(1, 7), "命中");
    EXPECT_EQ(grid.Cell(52, 1), "2026115期推荐胆码");
    EXPECT_EQ(grid.Cell(53, 1), "每组命中概率");
    EXPECT_EQ(driver.Text("Frame1"), "分析结果  共50期数据,概率降低请重新学习");

    // The whole grid once more by a plain walk over the draws as texts.
    const Json formulas = driver.Sql("select top 3 gs from trate order by rate desc");
    std::vector<std::vector<std::string>> draws;
    for (const Json& row : driver.Sql("select kjhm from cphm order by kjqh asc")) {
        draws.push_back(Split(row[0].get<std::string>(), ","));
    }
    const std::size_t first = draws.size() - 50;
    draws.emplace_back();  // the next issue
    for (int group = 0; group < 3; ++group) {
        const auto positions =
            Split(formulas[static_cast<std::size_t>(group)][0].get<std::string>(), ",");
        const int left = 2 + group * 6;
        int hitRows = 0;
        for (int row = 2; row <= 52; ++row) {
            const std::size_t at = first + static_cast<std::size_t>(row - 2);
            int hits = 0;
            for (int j = 0; j < 5; ++j) {
                const std::size_t position = std::stoul(positions[static_cast<std::size_t>(j)]);
                const std::string& ball = draws[at - 1 - position / 6][position % 6];
                const bool hit = Contains(Join(draws[at], ","), ball);
                EXPECT_EQ(grid.Cell(row, left + j), ball) << row << "," << left + j;
                EXPECT_EQ(grid.Back(row, left + j), hit ? "#D7856E" : "#ECF1F1");
                hits += hit ? 1 : 0;
            }
            if (row == 52) break;
            EXPECT_EQ(grid.Cell(row, left + 5), std::to_string(hits));
            hitRows += hits > 0 ? 1 : 0;
        }
        EXPECT_EQ(grid.Cell(53, left + 5), std::to_string(2 * hitRows));
    }
    EXPECT_EQ(driver.Sql("select count(*) from xxjl")[0][0], 1);
}

TEST_F(BankerRoad, LeavesTheWorkToARunStartedInTheMiddle) {
    driver.Sql("update vqs set xxqs=50,dmgs=5 where itype=0");
    const Json learn = {{"do", "menu"}, {"entry", "m_xuexi"}};
    driver.Do({{"do", "during"}, {"command", learn}});
    const Reply outer = driver.Do(learn);
    EXPECT_EQ(outer["during"], (Json{{"ok", true}}));
    EXPECT_THAT(outer.Messages(), ElementsAre());
    EXPECT_EQ(driver.Sql("select count(*) from xxjl")[0][0], 1);
    EXPECT_EQ(driver.Sql("select count(*)-count(distinct gs) from trate")[0][0], 0);
    EXPECT_FALSE(driver.Shows("frmMsg"));
}

TEST_F(BankerRoad, RefusesWhatItCannotRecommend) {
    driver.Menu("m_xuexi");
    const struct {
        const char* start;
        const char* end;
        const char* message;
    } kCases[] = {
        {"2026100", "2026099", "结束期号不能小于起始期号！"},
        {"2026x00", "2026099", "期号填写错误！"},
        {"2026100", "1 or 1=1", "期号填写错误！"},
        {"", "2026099", "期号填写错误！"},
        {"2003005", "2003050", "数据不足"},
    };
    const Json before = driver.Grid("vs1")["cells"];
    for (const auto& c : kCases) {
        driver.Set("cboSdate", c.start);
        driver.Set("cboEdate", c.end);
        EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre(c.message)) << c.start;
    }
    EXPECT_EQ(driver.Grid("vs1")["cells"], before);

    driver.Set("cboEdate", "2026114");
    driver.Set("cboSdate", "2026114");
    SetSettings("30", 2);
    EXPECT_THAT(
        driver.Click("Command1").Messages(),
        ElementsAre("你更改了学习参数为2胆之后还未重新学习,更改之前是推荐3胆,请立即重新学习！"));
    SetSettings("30", 3);
    driver.Click("Command1");
    EXPECT_EQ(driver.Grid("vs1").Rows(), 5);  // a range of one draw

    driver.Sql("delete from cpjc where kjqh=2026114");
    EXPECT_THAT(driver.Click("Command1").Messages(),
                ElementsAre("奖池信息未更新，不能推荐，请先更新奖池信息！"));
}

TEST_F(BankerRoad, MarksRichPoolsFromOneYuanAbove) {
    driver.Sql("update cpjc set xqjc=300000000 where kjqh=2026113");
    driver.Sql("update cpjc set xqjc=300000001 where kjqh=2026114");
    driver.Menu("m_xuexi");
    const Json fore = driver.Grid("vs1")["fore"];
    EXPECT_FALSE(fore.contains("30,1"));
    EXPECT_EQ(fore.value("31,1", ""), "#0000FA");
}

TEST_F(BankerRoad, ChecksTheSettings) {
    driver.Menu("m_rs");
    const std::pair<const char*, const char*> refused[] = {
        {"abc", "必须为数字！"},         {"", "必须为数字！"},
        {"101", "期数不能超过100期！"},  {"0100", "期数不能超过100期！"},
        {"12.5", "期数不能超过100期！"}, {"4", "期数不能小于5期！"},
    };
    for (const auto& [text, message] : refused) {
        driver.Set("Text1", text);
        const Reply reply = driver.Click("Command1");
        EXPECT_THAT(reply.Messages(), ElementsAre(message)) << text;
        EXPECT_EQ(reply["modal"], "frmXUEXI");
    }
    driver.Set("Text1", " 5 ");
    EXPECT_THAT(driver.Click("Command1").Messages(),
                ElementsAre("您改更了学习参数，请立即重新学习！"));
    EXPECT_EQ(driver.Sql("select xxqs from vqs where itype=0")[0][0], 5);
}

TEST_F(BankerRoad, RestoresARecord) {
    SetSettings("20", 3);
    driver.Menu("m_xuexi");
    const Json learned = driver.Sql("select gs,rate from trate order by rate desc limit 3");
    SetSettings("50", 3);
    driver.Menu("m_xuexi");

    driver.Menu("m_sr");
    const Reply records = driver.Grid("vs1");
    EXPECT_EQ(records.Rows(), 3);
    driver.Mouse("vs1", records.Cell(1, 1) == "20" ? 1 : 2, 0);
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre("已还原到选中的设置！"));
    driver.Click("Command2");
    EXPECT_EQ(driver.Sql("select gs,rate from trate"), learned);
    EXPECT_EQ(driver.Sql("select xxqs from vqs where itype=0")[0][0], 20);
}

TEST_F(BankerRoad, ShowsTheShell) {
    EXPECT_EQ(driver.Text("frmMain"), "双色球分析工作台 3.50");
    const Json panels = {
        "最新:2026114",
        "当前模式: 学习的期数是30期,学习的胆码是3个   胆码推荐需要奖池信息更新之后才能推荐！"};
    EXPECT_EQ(driver.Get("bar1")["panels"], panels);
    EXPECT_EQ(driver.Text("cboSdate"), "2026085");
    EXPECT_THAT(driver.Menu("m_xqhmcx").Messages(), ElementsAre());
    EXPECT_THAT(driver.Menu("m_bianmaHanglie").Messages(), ElementsAre("未开放"));
    EXPECT_THAT(driver.Menu("m_zd").Messages(), ElementsAre("该功能暂不开放！"));

    EXPECT_EQ(driver.Menu("m_updatesoft")["opened"], nullptr);
    std::ofstream(driver.folder() / "Update.exe") << "x";
    const Json opened = driver.Menu("m_updatesoft")["opened"];
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_THAT(opened[0].get<std::string>(), EndsWith("Update.exe /SilentCheck2 /NoIcon "));

    driver.Answer("button", "Cancel");
    EXPECT_THAT(driver.Close().Messages(), ElementsAre(" 您确定要退出软件吗？"));
    EXPECT_EQ(driver.Text("cboEdate"), "2026114");
    driver.Send({{"do", "close"}});
    EXPECT_TRUE(driver.WaitForEnd());
}

TEST(BrokenStore, KeepsTheProgramUp) {
    DriverClient driver{std::filesystem::path()};
    EXPECT_FALSE(driver.Get("frmMain").Messages().empty());
    EXPECT_FALSE(driver.Menu("m_rs").Messages().empty());
    driver.Click("Command2");
    driver.Set("cboEdate", "2026114");
    EXPECT_FALSE(driver.Menu("m_xuexi").Messages().empty());
    EXPECT_EQ(driver.Grid("vs1").Rows(), 0);
}

}  // namespace
}  // namespace ssq
