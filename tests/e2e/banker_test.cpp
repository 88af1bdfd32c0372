// The road of one recommendation through the real window, and the shell around it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <fstream>

#include "base/text.h"
#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::StartsWith;

class BankerRoad : public testing::Test {
  protected:
    void SetSettings(const QString& periods, int bankers) {
        driver.Menu("m_rs");
        driver.Set("Text1", periods);
        driver.Choose("cboDMGS", bankers - 1);
        const QJsonObject reply = driver.Click("Command1");
        EXPECT_TRUE(reply["modal"].isNull());
    }
    QJsonArray Rows(const QString& sql) {
        return driver.Do({{"do", "sql"}, {"text", sql}})["rows"].toArray();
    }

    DriverClient driver{SSQ_DELIVERED_DATABASE};
};

TEST_F(BankerRoad, LearnsRecommendsAndLogs) {
    SetSettings("50", 5);
    EXPECT_THAT(DriverClient::Messages(driver.Menu("m_xuexi")), ElementsAre());
    const QJsonObject grid = driver.Grid("vs1");
    ASSERT_EQ(grid["rows"].toInt(), 54);
    EXPECT_EQ(grid["cols"].toInt(), 20);
    EXPECT_EQ(DriverClient::Cell(grid, 0, 0), "开奖号码区");
    EXPECT_EQ(DriverClient::Cell(grid, 1, 7), "命中");
    EXPECT_EQ(DriverClient::Cell(grid, 52, 1), "2026115期推荐胆码");
    EXPECT_EQ(DriverClient::Cell(grid, 53, 1), "每组命中概率");
    EXPECT_EQ(driver.Text("Frame1"), "分析结果  共50期数据,概率降低请重新学习");

    // The whole grid once more by a plain walk over the draws as texts.
    const QJsonArray formulas = Rows("select top 3 gs from trate order by rate desc");
    const QJsonArray draws = Rows("select kjhm from cphm order by kjqh asc");
    const int first = draws.size() - 50;
    for (int group = 0; group < 3; ++group) {
        const auto positions = Split(formulas[group][0].toString().toStdString(), ",");
        int hitRows = 0;
        for (int row = 2; row <= 52; ++row) {
            std::vector<std::string> window;
            for (int back = 1; back <= 4; ++back) {
                const QJsonValue earlier = draws[first + row - 2 - back][0];
                for (const auto& ball : Split(earlier.toString().toStdString(), ",")) {
                    window.push_back(ball);
                }
            }
            const std::string draw =
                row == 52 ? "" : draws[first + row - 2][0].toString().toStdString();
            int hits = 0;
            for (int j = 0; j < 5; ++j) {
                const int col = 2 + group * 6 + j;
                const std::string ball = window[std::stoul(positions[std::size_t(j)])];
                const bool hit = Contains(draw, ball);
                EXPECT_EQ(DriverClient::Cell(grid, row, col), ball) << row << "," << col;
                EXPECT_EQ(DriverClient::Back(grid, row, col), hit ? "#D7856E" : "#ECF1F1");
                hits += hit ? 1 : 0;
            }
            if (row == 52) break;
            EXPECT_EQ(DriverClient::Cell(grid, row, 7 + group * 6), std::to_string(hits));
            hitRows += hits > 0 ? 1 : 0;
        }
        EXPECT_EQ(DriverClient::Cell(grid, 53, 7 + group * 6), std::to_string(2 * hitRows));
    }
    EXPECT_EQ(Rows("select count(*) from xxjl")[0][0].toInt(), 1);
}

TEST_F(BankerRoad, RefusesWhatItCannotRecommend) {
    driver.Menu("m_xuexi");
    struct Case {
        const char* start;
        const char* end;
        const char* message;
    };
    const Case cases[] = {
        {"2026100", "2026099", "结束期号不能小于起始期号！"},
        {"2026x00", "2026099", "期号填写错误！"},
        {"2026100", "1 or 1=1", "期号填写错误！"},
        {"", "2026099", "期号填写错误！"},
        {"2003005", "2003050", "数据不足"},
    };
    const QJsonObject before = driver.Grid("vs1");
    for (const Case& c : cases) {
        driver.Set("cboSdate", QString::fromUtf8(c.start));
        driver.Set("cboEdate", QString::fromUtf8(c.end));
        EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")), ElementsAre(c.message))
            << c.start;
    }
    EXPECT_EQ(driver.Grid("vs1")["cells"], before["cells"]);

    driver.Set("cboEdate", "2026114");
    driver.Set("cboSdate", "2026114");
    SetSettings("30", 2);
    EXPECT_THAT(
        DriverClient::Messages(driver.Click("Command1")),
        ElementsAre("你更改了学习参数为2胆之后还未重新学习,更改之前是推荐3胆,请立即重新学习！"));
    SetSettings("30", 3);
    driver.Click("Command1");
    const QJsonObject single = driver.Grid("vs1");
    EXPECT_EQ(single["rows"].toInt(), 5);
    for (int group = 0; group < 3; ++group) {
        const std::string rate = DriverClient::Cell(single, 4, 5 + group * 4);
        EXPECT_TRUE(rate == "0" || rate == "100") << rate;
        EXPECT_NE(DriverClient::Cell(single, 3, 2 + group * 4), "");
    }

    driver.Do({{"do", "sql"}, {"text", "delete from cpjc where kjqh=2026114"}});
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")),
                ElementsAre("奖池信息未更新，不能推荐，请先更新奖池信息！"));
}

TEST_F(BankerRoad, MarksRichPoolsFromOneYuanAbove) {
    driver.Do({{"do", "sql"}, {"text", "update cpjc set xqjc=300000000 where kjqh=2026113"}});
    driver.Do({{"do", "sql"}, {"text", "update cpjc set xqjc=300000001 where kjqh=2026114"}});
    driver.Menu("m_xuexi");
    const QJsonObject fore = driver.Grid("vs1")["fore"].toObject();
    EXPECT_FALSE(fore.contains("30,1"));
    EXPECT_EQ(fore["31,1"].toString(), "#0000FA");
}

TEST_F(BankerRoad, ChecksTheSettings) {
    driver.Menu("m_rs");
    const std::pair<const char*, const char*> refused[] = {
        {"abc", "必须为数字！"},         {"", "必须为数字！"},
        {"101", "期数不能超过100期！"},  {"0100", "期数不能超过100期！"},
        {"12.5", "期数不能超过100期！"}, {"4", "期数不能小于5期！"},
    };
    for (const auto& [text, message] : refused) {
        driver.Set("Text1", QString::fromUtf8(text));
        const QJsonObject reply = driver.Click("Command1");
        EXPECT_THAT(DriverClient::Messages(reply), ElementsAre(message)) << text;
        EXPECT_EQ(reply["modal"].toString(), "frmXUEXI");
    }
    driver.Set("Text1", " 5 ");
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")),
                ElementsAre("您改更了学习参数，请立即重新学习！"));
    EXPECT_EQ(Rows("select xxqs from vqs where itype=0")[0][0].toInt(), 5);
}

TEST_F(BankerRoad, RestoresARecord) {
    SetSettings("20", 3);
    driver.Menu("m_xuexi");
    const QJsonArray learned = Rows("select gs,rate from trate order by rate desc limit 3");
    SetSettings("50", 3);
    driver.Menu("m_xuexi");

    driver.Menu("m_sr");
    const QJsonObject records = driver.Grid("vs1");
    EXPECT_EQ(records["rows"].toInt(), 3);
    const int row = DriverClient::Cell(records, 1, 1) == "20" ? 1 : 2;
    driver.Do({{"do", "select"},
               {"control", "vs1"},
               {"row", row},
               {"col", 0},
               {"rowSel", row},
               {"colSel", 4}});
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")),
                ElementsAre("已还原到选中的设置！"));
    driver.Click("Command2");
    EXPECT_EQ(Rows("select gs,rate from trate"), learned);
    EXPECT_EQ(Rows("select xxqs from vqs where itype=0")[0][0].toInt(), 20);
}

TEST_F(BankerRoad, ShowsTheShell) {
    EXPECT_EQ(driver.Text("frmMain"), "双色球分析工作台 3.50");
    const QJsonArray panels = driver.Do({{"do", "get"}, {"control", "bar1"}})["panels"].toArray();
    EXPECT_EQ(panels[0].toString(), "最新:2026114");
    EXPECT_EQ(
        panels[1].toString(),
        "当前模式: 学习的期数是30期,学习的胆码是3个   胆码推荐需要奖池信息更新之后才能推荐！");
    EXPECT_EQ(driver.Text("cboSdate"), "2026085");
    EXPECT_THAT(DriverClient::Messages(driver.Menu("m_xqhmcx")), ElementsAre());
    EXPECT_THAT(DriverClient::Messages(driver.Menu("m_bianmaHanglie")), ElementsAre("未开放"));
    EXPECT_THAT(DriverClient::Messages(driver.Menu("m_zd")), ElementsAre("该功能暂不开放！"));

    EXPECT_EQ(driver.Menu("m_updatesoft")["opened"].toArray().size(), 0);
    std::ofstream(driver.folder() / "Update.exe") << "x";
    const QJsonArray opened = driver.Menu("m_updatesoft")["opened"].toArray();
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened[0].toString().endsWith("Update.exe /SilentCheck2 /NoIcon "))
        << opened[0].toString().toStdString();

    driver.Do({{"do", "answer"}, {"button", "Cancel"}});
    const QJsonObject question = driver.Do({{"do", "close"}});
    EXPECT_THAT(DriverClient::Messages(question), ElementsAre(" 您确定要退出软件吗？"));
    EXPECT_EQ(driver.Text("cboEdate"), "2026114");
    driver.Do({{"do", "answer"}, {"button", "OK"}});
    driver.Send({{"do", "close"}});
    EXPECT_TRUE(driver.WaitForEnd());
}

TEST(BrokenStore, KeepsTheProgramUp) {
    DriverClient driver{{}};
    const QJsonObject start = driver.Do({{"do", "get"}, {"control", "frmMain"}});
    EXPECT_FALSE(DriverClient::Messages(start).empty());
    EXPECT_FALSE(DriverClient::Messages(driver.Menu("m_rs")).empty());
    driver.Click("Command2");
    driver.Set("cboEdate", "2026114");
    EXPECT_FALSE(DriverClient::Messages(driver.Menu("m_xuexi")).empty());
    EXPECT_EQ(driver.Grid("vs1")["rows"].toInt(), 0);
}

}  // namespace
}  // namespace ssq
