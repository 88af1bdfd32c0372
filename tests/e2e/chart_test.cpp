// The trend chart through the real window: build, picks by mouse, hidden numbers, export.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;

TEST(ChartRoad, BuildsTakesPicksHidesNumbersAndExports) {
    DriverClient driver;
    driver.Menu("m_zst_cg");
    EXPECT_EQ(driver.Text("frmZST"), " 走势图分析");
    driver.Set("cboSdate", "2026110");
    driver.Set("cboEdate", "2026114");
    driver.Choose("cboZtype", 0);
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre());
    EXPECT_EQ(driver.Text("Frame2"), "走势图结果  [共5期]");

    const auto press = [&](int row, int col) {
        driver.Mouse("vs1", row, col);
        return driver.Grid("vs1").Cell(row, col);
    };
    EXPECT_EQ(press(6, 10), "08");
    EXPECT_EQ(press(6, 10), "");
    EXPECT_EQ(press(8, 35), "33");
    EXPECT_EQ(press(9, 3), "20");  // the rates are no pick row

    Json numbers;
    for (int col = 3; col <= 35; ++col) numbers.push_back(col);
    driver.Popup("vs1", 1, 1, "m_hide_zst");
    EXPECT_EQ(driver.Grid("vs1")["hidden"], numbers);
    driver.Popup("vs1", 1, 1, "m_disp_zst");
    EXPECT_EQ(driver.Grid("vs1")["hidden"], Json::array());

    const std::string file = driver.folder() / "chart";
    driver.Answer("file", file);
    EXPECT_THAT(driver.Click("Command2").Messages(), ElementsAre("保存成功！"));
    EXPECT_TRUE(std::filesystem::exists(file + ".xls"));
}

TEST(ChartRoad, TheStripFindsSortsAndSavesWhereNoPressIsTaken) {
    DriverClient driver;
    driver.Menu("m_wszst");
    driver.Set("cboSdate", "2026110");
    driver.Click("Command1");
    driver.Mouse("vs1", 0, 2);
    const Reply sorted = driver.Grid("vs1");
    EXPECT_EQ(sorted["sortedCol"], 2);
    EXPECT_EQ(sorted["order"].size(), 9U);
    EXPECT_EQ(sorted["order"][6], 6);  // the rates stay below
    driver.Mouse("vs1", 0, 2);
    driver.Mouse("vs1", 0, 2);
    EXPECT_EQ(driver.Grid("vs1")["order"], nullptr);

    EXPECT_FALSE(driver.Shows("vs1_find"));
    driver.Do({{"do", "popup"}, {"control", "vs1_menu"}, {"entry", "grid_find"}});
    driver.Set("vs1_find", "命中率");
    EXPECT_EQ(driver.Text("vs1_count"), "共 3 处");
    driver.Do({{"do", "key"}, {"control", "vs1_find"}, {"key", "Return"}});
    EXPECT_EQ(driver.Text("vs1_count"), "第 1 / 3 处");
    driver.Do({{"do", "key"}, {"control", "vs1_find"}, {"key", "Escape"}});
    EXPECT_FALSE(driver.Shows("vs1_find"));
    EXPECT_EQ(driver.Text("frmWeiShu"), " 尾数走势图");

    driver.Popup("vs1", 1, 0, "grid_copyTable");
    EXPECT_EQ(driver.Text("vs1_word"), "已带标题复制 1 行 × 1 列");
    const std::string file = driver.folder() / "tails.csv";
    driver.Answer("file", file);
    EXPECT_THAT(
        driver.Do({{"do", "popup"}, {"control", "vs1_menu"}, {"entry", "grid_csv"}}).Messages(),
        ElementsAre("保存成功！"));
    EXPECT_GT(std::filesystem::file_size(file), 500U);
}

TEST(ChartRoad, TheSegmentsStandInAWindowOfTheirOwn) {
    DriverClient driver;
    driver.Menu("m_zst_hmd");
    driver.Click("Command2");
    EXPECT_EQ(driver.Text("frmQDDZ"), " 号码区段对照表");
}

}  // namespace
}  // namespace ssq
