// Kill learning through the real window: settings, search, recommendation, log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class KillRoad : public testing::Test {
  protected:
    void SetUp() override { driver.Menu("m_shamatujian"); }

    std::vector<std::string> Learn(int dmgs, const char* draws, const char* rate) {
        driver.Click("Command2");
        driver.Choose("cboSmGs", dmgs);
        driver.Set("txtQS", draws);
        driver.Set("txtGL", rate);
        return driver.Click("Command1").Messages();
    }
    Json Learned() { return driver.Sql("select dsgs,dsrate from tDs where dstype=1")[0]; }

    DriverClient driver;
};

TEST_F(KillRoad, FindsASetWithTheSettingsAsDelivered) {
    driver.Close();
    EXPECT_THAT(driver.Menu("m_shamatujian").Messages(), ElementsAre());
    driver.Click("Command2");
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre());
    EXPECT_EQ(driver.Grid("vs1").Cell(12, 9), std::to_string(Learned()[1].get<int>()));
}

TEST_F(KillRoad, LearnsEverySizeAndShowsTheLearnedDraws) {
    for (int dmgs = 0; dmgs < 4; ++dmgs) {
        EXPECT_THAT(Learn(dmgs, "10", "10"), ElementsAre());
        const Json best = Learned();
        EXPECT_EQ(Split(best[0].get<std::string>(), ",").size(), dmgs + 1U);
        const int rc = dmgs == 0 ? 0 : dmgs + 1;
        EXPECT_EQ(driver.Sql("select top 1 endDate,tQs,tDsGs,tRcGs,tGsStr,tRate from tSrecord "
                             "order by id desc")[0],
                  (Json{2026114, 10, dmgs, rc, best[0], best[1]}));

        const Reply grid = driver.Grid("vs1");
        EXPECT_EQ(grid["cols"], 6 * (dmgs + 1) + 4);
        EXPECT_EQ(driver.Text("cboSdate"), "2026105");
        EXPECT_THAT(driver.Text("Frame2"), HasSubstr("10期内杀" + std::to_string(6 * dmgs + 6)));
        EXPECT_EQ(grid.Cell(1, 0), "2026105");
        EXPECT_EQ(grid.Cell(11, 1), "2026115期杀号推荐");
        // Without tolerance the verdicts count the very draws that the search counted.
        if (dmgs == 0) {
            EXPECT_EQ(grid.Cell(12, 9), std::to_string(best[1].get<int>()));
        }
        EXPECT_EQ(driver.Get("Command2")["enabled"], true);
        EXPECT_FALSE(driver.Shows("frmMsg"));
    }
}

TEST_F(KillRoad, KeepsTheStuckStateUntilThePanelIsClosed) {
    EXPECT_THAT(Learn(0, "9999", "40"), ElementsAre("数据不足！"));
    EXPECT_EQ(driver.Get("Command2")["enabled"], false);
    EXPECT_TRUE(driver.Shows("frmMsg"));
    EXPECT_EQ(driver.Text("LBLmsg"), "准备数据中，首次运行较慢");
    driver.Close();
    driver.Menu("m_shamatujian");
    EXPECT_EQ(driver.Get("Command2")["enabled"], true);
    EXPECT_FALSE(driver.Shows("frmMsg"));
}

TEST_F(KillRoad, RestoresARecordAndCopiesItsConditions) {
    EXPECT_THAT(driver.Click("Command3").Messages(), ElementsAre("还没有学习记录！"));
    driver.Click("Command2");
    driver.Set("cboEdate", "2026100");
    Learn(3, "8", "50");
    const Json learned = Learned();
    const Reply before = driver.Grid("vs1");
    driver.Set("cboEdate", "2026114");
    Learn(0, "5", "10");

    driver.Click("Command3");
    EXPECT_EQ(driver.Grid("vs1").Cell(2, 3), "24");
    driver.Mouse("vs1", 2, 0);
    EXPECT_EQ(driver.Click("Command1")["modal"], "frmSHAMAxxjl");
    driver.Click("Command2");
    EXPECT_EQ(Learned(), learned);
    EXPECT_EQ(driver.Text("cboEdate"), "2026100");
    EXPECT_EQ(driver.Grid("vs1")["cells"], before["cells"]);

    driver.Popup("vs1", 9, 2, "shama_tiaojiangeshi");
    const std::string pair = before.Cell(9, 2) + "," + before.Cell(9, 8) + "/0~1";
    EXPECT_EQ(Split(driver.Clipboard(), "\r\n").at(4), pair);  // behind the four groups
    driver.Popup("vs1", 9, 3, "m_smfuzi");
    EXPECT_EQ(driver.Clipboard(), before.Cell(9, 3));
}

}  // namespace
}  // namespace ssq
