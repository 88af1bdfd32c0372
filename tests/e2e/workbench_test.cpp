// The formula workbench through the real window: statistics, filters, chart, omission screen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;

class Workbench : public testing::Test {
  protected:
    void SetUp() override { driver.Menu("m_sdsh"); }

    // Which of the controls that the tabs swap are on show.
    std::vector<std::string> Shown() {
        std::vector<std::string> shown;
        for (const char* control : {"vs1", "Frame2", "vs2", "cboZst", "ZST"}) {
            if (driver.Shows(control)) shown.emplace_back(control);
        }
        return shown;
    }
    Reply Chart() { return driver.Do({{"do", "chart"}, {"control", "ZST"}}); }
    int Filter(const char* control, const char* text, const char* button) {
        driver.Set(control, text);
        driver.Click(button);
        return driver.Grid("vs2").Rows() - 1;
    }

    DriverClient driver;
};

TEST_F(Workbench, ShowsItsViews) {
    EXPECT_EQ(driver.Text("frmShaHao"), "公式胆杀--胆杀利器");
    EXPECT_THAT(Shown(), ElementsAre("vs1"));
    EXPECT_THAT(driver.Choose("tab1", 2).Messages(),
                ElementsAre("请先选择公式后,双击已经统计好的某行公式就可以显示了哦！"));
    EXPECT_THAT(Shown(), ElementsAre());
    driver.Choose("tab1", 1);
    EXPECT_THAT(Shown(), ElementsAre("Frame2", "vs2"));
    for (const char* button : {"Command2", "Command3", "Command4"}) {
        EXPECT_THAT(driver.Click(button).Messages(), ElementsAre("没有统计数据！"));
    }
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre());
    EXPECT_THAT(Shown(), ElementsAre("vs1"));
    EXPECT_EQ(driver.Text("LBLXQ"), " 下期期号：2026115  下期开奖号码：未开奖");
    EXPECT_EQ(driver.Text("LBLmsg"), "100");
    EXPECT_FALSE(driver.Shows("frmMsg"));
    driver.Choose("tab1", 2);
    EXPECT_THAT(Shown(), ElementsAre("cboZst", "ZST"));
    // Before a formula is chosen a length draws nothing.
    driver.Choose("cboZst", 1);
    EXPECT_EQ(Chart()["values"], Json::array());
}

TEST_F(Workbench, CountsFiltersAndCopies) {
    driver.Set("cboEdate", "2020050");
    driver.Set("cboWhere", ">=");
    driver.Set("CboNUM", "2");
    driver.Click("Command1");
    EXPECT_EQ(driver.Grid("vs1").Rows(), 131);

    driver.Choose("tab1", 1);
    EXPECT_GT(Filter("cboYLCS", "-5", "Command2"), Filter("cboYLCS", "最大遗漏", "Command2"));
    EXPECT_GT(Filter("cboYCCS", "1", "Command3"), Filter("cboYCCS", "最大连出", "Command3"));
    const int likely = Filter("txtGL", "30", "Command4");
    ASSERT_GE(likely, 2);
    EXPECT_EQ(driver.Text("Frame2"),
              "筛选当现概率大于等于30 的公式,共" + std::to_string(likely) + "条数据");

    const Reply filtered = driver.Grid("vs2");
    driver.Do({{"do", "select"},
               {"control", "vs2"},
               {"row", 1},
               {"col", 8},
               {"rowSel", 2},
               {"colSel", 8}});
    const std::string first = filtered.Cell(1, 8);
    const std::string second = filtered.Cell(2, 8);
    driver.Popup("vs2", 1, 8, "gs1_fz");
    EXPECT_EQ(driver.Clipboard(), first + "\r" + second);
    driver.Popup("vs2", 1, 8, "gs1_fztj");
    EXPECT_EQ(driver.Clipboard(), first + "/0~1\r\n" + second + "/0~1");

    // A new run empties the filtered rows and shows the first view.
    driver.Click("Command1");
    EXPECT_EQ(driver.Grid("vs2").Rows(), 0);
    EXPECT_THAT(Shown(), ElementsAre("vs1"));
    driver.Set("cboEdate", "2020x50");
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre("期号填写错误！"));
    EXPECT_EQ(driver.Grid("vs1").Rows(), 0);
}

TEST_F(Workbench, ChartsAFormulaFromEachGrid) {
    driver.Click("Command1");
    driver.Mouse("vs1", 17, 3, "double");
    EXPECT_EQ(driver.Text("tab1"), "公式Q2B4的走势图");
    EXPECT_THAT(Shown(), ElementsAre("cboZst", "ZST"));
    driver.Choose("cboZst", 6);
    const Reply chart = Chart();
    const Json hits = driver.Sql("select top 500 q2b4,kjqh from bmhz order by kjqh desc");
    Json values = Json::array();
    Json labels = Json::array();
    std::vector<int> levels(7);
    for (auto row = hits.rbegin(); row != hits.rend(); ++row) {
        values.push_back((*row)[0].get<double>());
        labels.push_back(std::to_string((*row)[1].get<int>()).substr(2));
        ++levels[(*row)[0].get<std::size_t>()];
    }
    EXPECT_EQ(values.size(), 500U);
    EXPECT_EQ(chart["values"], values);
    EXPECT_EQ(chart["labels"], labels);
    std::string title;
    for (std::size_t level = 1; level <= 4; ++level) {
        title += (level > 1 ? "，中" : "中") + std::to_string(level) + "=" +
                 std::to_string(levels[level]) + "次";
    }
    EXPECT_EQ(chart["title"], title);
    EXPECT_EQ(chart["min"], 1);
    EXPECT_EQ(chart["max"], 6);

    driver.Choose("tab1", 0);
    driver.Popup("vs1", 1, 0, "gszst");
    EXPECT_EQ(driver.Text("tab1"), "公式Q1B1的走势图");
    driver.Choose("tab1", 1);
    driver.Set("txtGL", "0");
    driver.Click("Command4");
    driver.Popup("vs2", 3, 0, "gs1_gshm");
    EXPECT_EQ(driver.Text("tab1"), "公式Q1B3的走势图");
    driver.Choose("tab1", 1);
    driver.Mouse("vs2", 2, 0, "double");
    EXPECT_EQ(driver.Text("tab1"), "公式Q1B2的走势图");

    // A history shorter than the chart, and an end that is no issue.
    driver.Set("cboEdate", "2003015");
    driver.Choose("cboZst", 1);
    const Json few = {"03012", "03013", "03014", "03015"};
    EXPECT_EQ(Chart()["labels"], few);
    driver.Set("cboEdate", "2003999");
    EXPECT_THAT(driver.Choose("cboZst", 0).Messages(), ElementsAre("期号填写错误！"));
    EXPECT_EQ(Chart()["labels"], few);
}

TEST_F(Workbench, CountsNumbersOnTheOmissionScreen) {
    driver.Choose("tab1", 1);
    driver.Click("Command5");
    EXPECT_EQ(driver.Text("frmShaHaoYLSX"), "筛选条件");
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre("没有数据！"));
    EXPECT_THAT(driver.Click("Command4").Messages(), ElementsAre("无数据！"));

    driver.Panel("frmShaHao");
    driver.Set("cboEdate", "2020050");
    driver.Click("Command1");
    driver.Popup("vs1", 1, 0, "gs_ylsx");
    EXPECT_EQ(driver.Text("Frame1"), "截至期号：2020050");
    EXPECT_EQ(driver.Text("txtGL"), "99.5");
    driver.Click("Command7");
    EXPECT_EQ(driver.Text("Frame2"), "截至：2020050期,<=1的公式筛选结果,共0条数据");
    EXPECT_THAT(driver.Click("Command4").Messages(), ElementsAre("没有数据！"));
    driver.Set("txtLC", "无");
    driver.Click("Command6");
    EXPECT_EQ(driver.Grid("vs1").Rows(), 131);
    driver.Set("txtYLCS", "2");
    driver.Click("Command3");
    const Reply filtered = driver.Grid("vs1");
    ASSERT_GT(filtered.Rows(), 1);
    EXPECT_EQ(filtered.Cell(0, 7), "遗漏超出");

    const std::string drawn = driver.Sql("select kjhm from cphm where kjqh=2020051")[0][0];
    EXPECT_EQ(driver.Text("Frame1"), "截至期号：2020050   下期期号：2020051 开奖号码：" + drawn);
    driver.Click("Command4");
    const Reply counts = driver.Grid("vs1");
    EXPECT_EQ(counts["cols"], 35);
    EXPECT_EQ(counts.Cell(1, 1), drawn);
    int named = 0;
    for (int col = 2; col < 35; ++col) {
        named += std::stoi(counts.Cell(2, col));
        EXPECT_EQ(counts.Back(1, col), Contains(drawn, counts.Cell(1, col)) ? "#D7856E" : "");
    }
    EXPECT_EQ(named, 6 * (filtered.Rows() - 1));
    EXPECT_THAT(driver.Click("Command4").Messages(), ElementsAre("请先筛选数据！"));
    driver.Popup("vs1", 2, 2, "m_ylsx_fz");
    EXPECT_EQ(driver.Clipboard(), counts.Cell(2, 2));

    // Another issue on the workbench makes the result on show a thing of the past.
    driver.Panel("frmShaHao");
    driver.Set("cboEdate", "2020049");
    driver.Choose("tab1", 1);
    driver.Click("Command5");
    EXPECT_EQ(driver.Text("Frame1"), "截至期号：2020049");
    EXPECT_EQ(driver.Grid("vs1").Rows(), 0);
}

}  // namespace
}  // namespace ssq
