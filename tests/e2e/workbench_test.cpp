// The formula workbench through the real window: statistics, filters, chart, omission screen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>

#include "base/text.h"
#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;

class Workbench : public testing::Test {
  protected:
    void SetUp() override { driver.Menu("m_sdsh"); }

    bool Visible(const char* control) {
        return driver.Do({{"do", "get"}, {"control", control}})["visible"].toBool();
    }
    // Which of the controls that the tabs swap are on show.
    std::string Shown() {
        std::vector<std::string> shown;
        for (const char* control : {"vs1", "Frame2", "vs2", "cboZst", "ZST"}) {
            if (Visible(control)) shown.emplace_back(control);
        }
        return Join(shown, ",");
    }
    QJsonArray Rows(const QString& sql) {
        return driver.Do({{"do", "sql"}, {"text", sql}})["rows"].toArray();
    }
    QJsonObject Mouse(const char* grid, int row, int col, const char* button) {
        return driver.Do(
            {{"do", "mouse"}, {"control", grid}, {"row", row}, {"col", col}, {"button", button}});
    }
    void Popup(const char* grid, int row, int col, const char* entry) {
        driver.Do(
            {{"do", "popup"}, {"control", grid}, {"row", row}, {"col", col}, {"entry", entry}});
    }
    std::string Clipboard() {
        return driver.Do({{"do", "clipboard"}})["text"].toString().toStdString();
    }
    QJsonObject Chart() { return driver.Do({{"do", "chart"}, {"control", "ZST"}}); }
    int Filter(const char* control, const QString& text, const char* button) {
        driver.Set(control, text);
        driver.Click(button);
        return driver.Grid("vs2")["rows"].toInt() - 1;
    }

    DriverClient driver{SSQ_DELIVERED_DATABASE};
};

TEST_F(Workbench, ShowsItsViews) {
    EXPECT_EQ(driver.Text("frmShaHao"), "公式胆杀--胆杀利器");
    EXPECT_EQ(Shown(), "vs1");
    EXPECT_THAT(DriverClient::Messages(driver.Choose("tab1", 2)),
                ElementsAre("请先选择公式后,双击已经统计好的某行公式就可以显示了哦！"));
    EXPECT_EQ(Shown(), "");
    driver.Choose("tab1", 1);
    EXPECT_EQ(Shown(), "Frame2,vs2");
    for (const char* button : {"Command2", "Command3", "Command4"}) {
        EXPECT_THAT(DriverClient::Messages(driver.Click(button)), ElementsAre("没有统计数据！"));
    }
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")), ElementsAre());
    EXPECT_EQ(Shown(), "vs1");
    EXPECT_EQ(driver.Text("LBLXQ"), " 下期期号：2026115  下期开奖号码：未开奖");
    EXPECT_EQ(driver.Text("LBLmsg"), "100");
    EXPECT_FALSE(Visible("frmMsg"));
    driver.Choose("tab1", 2);
    EXPECT_EQ(Shown(), "cboZst,ZST");
    // Before a formula is chosen a length draws nothing.
    driver.Choose("cboZst", 1);
    EXPECT_EQ(Chart()["values"].toArray().size(), 0);
}

TEST_F(Workbench, CountsFiltersAndCopies) {
    driver.Set("cboEdate", "2020050");
    driver.Set("cboWhere", ">=");
    driver.Set("CboNUM", "2");
    driver.Click("Command1");
    EXPECT_EQ(driver.Grid("vs1")["rows"].toInt(), 131);

    driver.Choose("tab1", 1);
    EXPECT_GT(Filter("cboYLCS", "-5", "Command2"), Filter("cboYLCS", "最大遗漏", "Command2"));
    EXPECT_GT(Filter("cboYCCS", "1", "Command3"), Filter("cboYCCS", "最大连出", "Command3"));
    const int likely = Filter("txtGL", "30", "Command4");
    ASSERT_GE(likely, 2);
    EXPECT_EQ(driver.Text("Frame2"),
              "筛选当现概率大于等于30 的公式,共" + std::to_string(likely) + "条数据");

    const QJsonObject filtered = driver.Grid("vs2");
    driver.Do({{"do", "select"},
               {"control", "vs2"},
               {"row", 1},
               {"col", 8},
               {"rowSel", 2},
               {"colSel", 8}});
    const std::string first = DriverClient::Cell(filtered, 1, 8);
    const std::string second = DriverClient::Cell(filtered, 2, 8);
    Popup("vs2", 1, 8, "gs1_fz");
    EXPECT_EQ(Clipboard(), first + "\r" + second);
    Popup("vs2", 1, 8, "gs1_fztj");
    EXPECT_EQ(Clipboard(), first + "/0~1\r\n" + second + "/0~1");

    // A new run empties the filtered rows and shows the first view.
    driver.Click("Command1");
    EXPECT_EQ(driver.Grid("vs2")["rows"].toInt(), 0);
    EXPECT_EQ(Shown(), "vs1");
    driver.Set("cboEdate", "2020x50");
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")), ElementsAre("期号填写错误！"));
    EXPECT_EQ(driver.Grid("vs1")["rows"].toInt(), 0);
}

TEST_F(Workbench, ChartsAFormulaFromEachGrid) {
    driver.Click("Command1");
    Mouse("vs1", 17, 3, "double");
    EXPECT_EQ(driver.Text("tab1"), "公式Q2B4的走势图");
    EXPECT_EQ(Shown(), "cboZst,ZST");
    driver.Choose("cboZst", 6);
    const QJsonObject chart = Chart();
    const QJsonArray hits = Rows("select top 500 q2b4,kjqh from bmhz order by kjqh desc");
    const QJsonArray values = chart["values"].toArray();
    ASSERT_EQ(values.size(), 500);
    std::vector<int> levels(7);
    for (int i = 0; i < 500; ++i) {
        const QJsonArray row = hits[499 - i].toArray();
        EXPECT_EQ(values[i].toInt(), row[0].toInt());
        EXPECT_EQ(chart["labels"][i].toString(), QString::number(row[1].toInt()).mid(2));
        ++levels[std::size_t(row[0].toInt())];
    }
    EXPECT_EQ(chart["title"].toString(), QString("中1=%1次，中2=%2次，中3=%3次，中4=%4次")
                                             .arg(levels[1])
                                             .arg(levels[2])
                                             .arg(levels[3])
                                             .arg(levels[4]));
    EXPECT_EQ(chart["min"].toInt(), 1);
    EXPECT_EQ(chart["max"].toInt(), 6);

    driver.Choose("tab1", 0);
    Popup("vs1", 1, 0, "gszst");
    EXPECT_EQ(driver.Text("tab1"), "公式Q1B1的走势图");
    driver.Choose("tab1", 1);
    driver.Set("txtGL", "0");
    driver.Click("Command4");
    Popup("vs2", 3, 0, "gs1_gshm");
    EXPECT_EQ(driver.Text("tab1"), "公式Q1B3的走势图");
    driver.Choose("tab1", 1);
    Mouse("vs2", 2, 0, "double");
    EXPECT_EQ(driver.Text("tab1"), "公式Q1B2的走势图");

    // A history shorter than the chart, and an end that is no issue.
    driver.Set("cboEdate", "2003015");
    driver.Choose("cboZst", 1);
    EXPECT_EQ(Chart()["labels"].toArray(), (QJsonArray{"03012", "03013", "03014", "03015"}));
    driver.Set("cboEdate", "2003999");
    EXPECT_THAT(DriverClient::Messages(driver.Choose("cboZst", 0)), ElementsAre("期号填写错误！"));
    EXPECT_EQ(Chart()["labels"].toArray().size(), 4);
}

TEST_F(Workbench, CountsNumbersOnTheOmissionScreen) {
    driver.Choose("tab1", 1);
    driver.Click("Command5");
    EXPECT_EQ(driver.Text("frmShaHaoYLSX"), "筛选条件");
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")), ElementsAre("没有数据！"));
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command4")), ElementsAre("无数据！"));

    driver.Panel("frmShaHao");
    driver.Set("cboEdate", "2020050");
    driver.Click("Command1");
    Popup("vs1", 1, 0, "gs_ylsx");
    EXPECT_EQ(driver.Text("Frame1"), "截至期号：2020050");
    EXPECT_EQ(driver.Text("txtGL"), "99.5");
    driver.Click("Command7");
    EXPECT_EQ(driver.Text("Frame2"), "截至：2020050期,<=1的公式筛选结果,共0条数据");
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command4")), ElementsAre("没有数据！"));
    driver.Set("txtLC", "无");
    driver.Click("Command6");
    EXPECT_EQ(driver.Grid("vs1")["rows"].toInt(), 131);
    driver.Set("txtYLCS", "2");
    driver.Click("Command3");
    const QJsonObject filtered = driver.Grid("vs1");
    ASSERT_GT(filtered["rows"].toInt(), 1);
    EXPECT_EQ(DriverClient::Cell(filtered, 0, 7), "遗漏超出");

    const std::string drawn =
        Rows("select kjhm from cphm where kjqh=2020051")[0][0].toString().toStdString();
    EXPECT_EQ(driver.Text("Frame1"), "截至期号：2020050   下期期号：2020051 开奖号码：" + drawn);
    driver.Click("Command4");
    const QJsonObject counts = driver.Grid("vs1");
    EXPECT_EQ(counts["cols"].toInt(), 35);
    EXPECT_EQ(DriverClient::Cell(counts, 1, 1), drawn);
    int named = 0;
    for (int col = 2; col < 35; ++col) {
        const std::string number = DriverClient::Cell(counts, 1, col);
        named += std::stoi(DriverClient::Cell(counts, 2, col));
        EXPECT_EQ(DriverClient::Back(counts, 1, col), Contains(drawn, number) ? "#D7856E" : "");
    }
    EXPECT_EQ(named, 6 * (filtered["rows"].toInt() - 1));
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command4")), ElementsAre("请先筛选数据！"));

    Popup("vs1", 2, 2, "m_ylsx_fz");
    EXPECT_EQ(Clipboard(), DriverClient::Cell(counts, 2, 2));
    const QString file = QString::fromStdString((driver.folder() / "counts").string());
    driver.Do({{"do", "answer"}, {"file", file}});
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command2")), ElementsAre("保存成功！"));
    EXPECT_TRUE(QFile::exists(file + ".xls"));

    // Another issue on the workbench makes the result on show a thing of the past.
    driver.Panel("frmShaHao");
    driver.Set("cboEdate", "2020049");
    driver.Choose("tab1", 1);
    driver.Click("Command5");
    EXPECT_EQ(driver.Text("Frame1"), "截至期号：2020049");
    EXPECT_EQ(driver.Grid("vs1")["rows"].toInt(), 0);
}

}  // namespace
}  // namespace ssq
