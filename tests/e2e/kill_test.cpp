// Kill learning through the real window: settings, search, recommendation, log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>

#include "base/text.h"
#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class KillRoad : public testing::Test {
  protected:
    void SetUp() override { driver.Menu("m_shamatujian"); }

    std::vector<std::string> Learn(int dmgs, const QString& draws, const QString& rate) {
        driver.Click("Command2");
        driver.Choose("cboSmGs", dmgs);
        driver.Set("txtQS", draws);
        driver.Set("txtGL", rate);
        return DriverClient::Messages(driver.Click("Command1"));
    }
    QJsonArray Row(const QString& sql) {
        return driver.Do({{"do", "sql"}, {"text", sql}})["rows"][0].toArray();
    }
    QJsonObject Control(const char* name) { return driver.Do({{"do", "get"}, {"control", name}}); }

    DriverClient driver{SSQ_DELIVERED_DATABASE};
};

TEST_F(KillRoad, LearnsEverySizeAndShowsTheLearnedDraws) {
    for (int dmgs = 0; dmgs < 4; ++dmgs) {
        EXPECT_THAT(Learn(dmgs, "10", "10"), ElementsAre());
        const QJsonArray best = Row("select dsgs,dsrate from tDs where dstype=1");
        EXPECT_EQ(best[0].toString().split(u',').size(), dmgs + 1);
        const int rc = dmgs == 0 ? 0 : dmgs + 1;
        EXPECT_EQ(Row("select top 1 endDate,tQs,tDsGs,tRcGs,tGsStr,tRate from tSrecord order by id "
                      "desc"),
                  (QJsonArray{2026114, 10, dmgs, rc, best[0], best[1]}));

        const QJsonObject grid = driver.Grid("vs1");
        EXPECT_EQ(grid["cols"].toInt(), 6 * (dmgs + 1) + 4);
        EXPECT_EQ(driver.Text("cboSdate"), "2026105");
        EXPECT_THAT(driver.Text("Frame2"), HasSubstr("10期内杀" + std::to_string(6 * dmgs + 6)));
        EXPECT_EQ(DriverClient::Cell(grid, 1, 0), "2026105");
        EXPECT_EQ(DriverClient::Cell(grid, 11, 1), "2026115期杀号推荐");
        // Without tolerance the verdicts count the very draws that the search counted.
        if (dmgs == 0) {
            EXPECT_EQ(DriverClient::Cell(grid, 12, 9), std::to_string(best[1].toInt()));
        }
        EXPECT_TRUE(Control("Command2")["enabled"].toBool());
        EXPECT_FALSE(Control("frmMsg")["visible"].toBool());
    }
}

TEST_F(KillRoad, KeepsTheStuckStateUntilThePanelIsClosed) {
    EXPECT_THAT(Learn(0, "9999", "40"), ElementsAre("数据不足！"));
    EXPECT_FALSE(Control("Command2")["enabled"].toBool());
    EXPECT_TRUE(Control("frmMsg")["visible"].toBool());
    EXPECT_EQ(driver.Text("LBLmsg"), "准备数据中，首次运行较慢");
    driver.Do({{"do", "close"}});
    driver.Menu("m_shamatujian");
    EXPECT_TRUE(Control("Command2")["enabled"].toBool());
    EXPECT_FALSE(Control("frmMsg")["visible"].toBool());
}

TEST_F(KillRoad, RestoresARecordAndCopiesItsConditions) {
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command3")), ElementsAre("还没有学习记录！"));
    driver.Click("Command2");
    driver.Set("cboEdate", "2026100");
    Learn(3, "8", "50");
    const QJsonArray learned = Row("select dsgs,dsrate from tDs");
    const QJsonObject before = driver.Grid("vs1");
    driver.Set("cboEdate", "2026114");
    Learn(0, "5", "10");

    driver.Click("Command3");
    EXPECT_EQ(DriverClient::Cell(driver.Grid("vs1"), 2, 3), "24");
    driver.Do({{"do", "mouse"}, {"control", "vs1"}, {"row", 2}, {"col", 0}, {"button", "left"}});
    EXPECT_EQ(driver.Click("Command1")["modal"].toString(), "frmSHAMAxxjl");
    driver.Click("Command2");
    EXPECT_EQ(Row("select dsgs,dsrate from tDs"), learned);
    EXPECT_EQ(driver.Text("cboEdate"), "2026100");
    EXPECT_EQ(driver.Grid("vs1")["cells"], before["cells"]);

    const char* conditions = "shama_tiaojiangeshi";
    driver.Do({{"do", "popup"}, {"control", "vs1"}, {"row", 9}, {"col", 2}, {"entry", conditions}});
    const std::string lines = driver.Do({{"do", "clipboard"}})["text"].toString().toStdString();
    const std::string pair =
        DriverClient::Cell(before, 9, 2) + "," + DriverClient::Cell(before, 9, 8) + "/0~1";
    EXPECT_EQ(Split(lines, "\r\n").at(4), pair);  // behind the four groups
    driver.Do({{"do", "popup"}, {"control", "vs1"}, {"row", 9}, {"col", 3}, {"entry", "m_smfuzi"}});
    EXPECT_EQ(driver.Do({{"do", "clipboard"}})["text"].toString().toStdString(),
              DriverClient::Cell(before, 9, 3));
}

}  // namespace
}  // namespace ssq
