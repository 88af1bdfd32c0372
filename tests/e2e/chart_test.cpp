// The trend chart through the real window: build, picks by mouse, hidden numbers, export.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>

#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;

TEST(ChartRoad, BuildsTakesPicksHidesNumbersAndExports) {
    DriverClient driver(SSQ_DELIVERED_DATABASE);
    driver.Menu("m_zst_cg");
    EXPECT_EQ(driver.Text("frmZST"), " 走势图分析");
    driver.Set("cboSdate", "2026110");
    driver.Set("cboEdate", "2026114");
    driver.Choose("cboZtype", 0);
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")), ElementsAre());
    EXPECT_EQ(driver.Text("Frame2"), "走势图结果  [共5期]");

    const auto press = [&](int r, int c) {
        driver.Do(
            {{"do", "mouse"}, {"control", "vs1"}, {"button", "left"}, {"row", r}, {"col", c}});
        return DriverClient::Cell(driver.Grid("vs1"), r, c);
    };
    EXPECT_EQ(press(6, 10), "08");
    EXPECT_EQ(press(6, 10), "");
    EXPECT_EQ(press(8, 35), "33");
    EXPECT_EQ(press(9, 3), "20");  // the rates are no pick row

    const auto hidden = [&](const char* entry) {
        driver.Do({{"do", "popup"}, {"control", "vs1"}, {"row", 1}, {"col", 1}, {"entry", entry}});
        return driver.Grid("vs1")["hidden"].toArray();
    };
    const QJsonArray numbers = hidden("m_hide_zst");
    EXPECT_EQ(numbers.size(), 33);
    EXPECT_TRUE(numbers.contains(3) && numbers.contains(35));
    EXPECT_TRUE(hidden("m_disp_zst").isEmpty());

    const auto file = driver.folder() / "chart";
    driver.Do({{"do", "answer"}, {"file", QString::fromStdString(file.string())}});
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command2")), ElementsAre("保存成功！"));
    EXPECT_TRUE(std::filesystem::exists(file.string() + ".xls"));
}

}  // namespace
}  // namespace ssq
