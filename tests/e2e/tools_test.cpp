// Custom formulas through the real window: the list, the store and the files stay level.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>

#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ToolsRoad : public testing::Test {
  protected:
    void Key(const char* control, const char* key) {
        driver.Do({{"do", "key"}, {"control", control}, {"key", key}});
    }
    QJsonArray Listed() {
        return driver.Do({{"do", "get"}, {"control", "List1"}})["items"].toArray();
    }
    QString Stored() {
        return driver
            .Do({{"do", "sql"},
                 {"text", "select gstext from gsjs where gsname='dm'"}})["rows"][0][0]
            .toString();
    }

    DriverClient driver{SSQ_DELIVERED_DATABASE};
};

TEST_F(ToolsRoad, EditsTestsSavesAndLoadsFormulas) {
    driver.Menu("m_zdtxd");
    EXPECT_THAT(driver.Text("List2"), StartsWith("使用帮助："));
    driver.Set("Text1", "a1+1");
    Key("Text1", "F1");
    driver.Choose("List1", 1);
    EXPECT_EQ(driver.Text("Text1"), "int((a3+a4)/2)");
    Key("List1", "Delete");
    driver.Choose("List1", 0);
    driver.Set("Text1", " a7 ");
    Key("Text1", "F3");
    EXPECT_EQ(Listed(), (QJsonArray{"a7", "a6-a1", "a1+1"}));
    EXPECT_EQ(Stored(), "a7{tornelka}a6-a1{tornelka}a1+1{tornelka}{tornelka}");

    driver.Set("TxtMzs", "9");  // a bad range keeps the store's list
    driver.Set("Text1", "a2");
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command1")),
                ElementsAre("起始值不能大于结束值！"));
    EXPECT_EQ(Listed().size(), 4);
    EXPECT_EQ(Stored(), "a7{tornelka}a6-a1{tornelka}a1+1{tornelka}{tornelka}");
    driver.Set("TxtMzs", "1");
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command4")), ElementsAre());
    EXPECT_THAT(driver.Text("List2"), StartsWith("本期红球胆码：范围>=1<=6\n2026115:   "));

    const auto told = DriverClient::Messages(driver.Click("Command6"));
    ASSERT_THAT(told, ElementsAre(HasSubstr("红球胆码{正确率")));
    const QString file = QString::fromStdString(told[0]).mid(7);
    driver.Set("TxtMzs", "0");
    driver.Do({{"do", "answer"}, {"file", file}});
    driver.Click("Command5");
    EXPECT_EQ(driver.Text("ZDY_XDM"), "自定义寻胆码--" + file.toStdString());
    EXPECT_EQ(driver.Text("TxtMzs"), "1");
    EXPECT_EQ(Stored(), "a7{tornelka}a6-a1{tornelka}a1+1{tornelka}a2{tornelka}{tornelka}");
}

}  // namespace
}  // namespace ssq
