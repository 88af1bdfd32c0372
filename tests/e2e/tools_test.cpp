// Custom formulas through the real window: the list, the store and the files stay level.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ToolsRoad : public testing::Test {
  protected:
    void SetUp() override { driver.Menu("m_zdtxd"); }

    void Key(const char* control, const char* key) {
        driver.Do({{"do", "key"}, {"control", control}, {"key", key}});
    }
    Json Listed() { return driver.Get("List1")["items"]; }
    std::string Stored() { return driver.Sql("select gstext from gsjs where gsname='dm'")[0][0]; }

    DriverClient driver;
};

TEST_F(ToolsRoad, EditsTestsSavesAndLoadsFormulas) {
    EXPECT_THAT(driver.Text("List2"), StartsWith("使用帮助："));
    driver.Set("Text1", "a1+1");
    Key("Text1", "F1");
    driver.Choose("List1", 1);
    EXPECT_EQ(driver.Text("Text1"), "int((a3+a4)/2)");
    Key("List1", "Delete");
    driver.Choose("List1", 0);
    driver.Set("Text1", " a7 ");
    Key("Text1", "F3");
    EXPECT_EQ(Listed(), (Json{"a7", "a6-a1", "a1+1"}));
    EXPECT_EQ(Stored(), "a7{tornelka}a6-a1{tornelka}a1+1{tornelka}{tornelka}");

    driver.Set("TxtMzs", "9");  // a bad range keeps the store's list
    driver.Set("Text1", "a2");
    EXPECT_THAT(driver.Click("Command1").Messages(), ElementsAre("起始值不能大于结束值！"));
    EXPECT_EQ(Listed().size(), 4U);
    EXPECT_EQ(Stored(), "a7{tornelka}a6-a1{tornelka}a1+1{tornelka}{tornelka}");
    driver.Set("TxtMzs", "1");
    EXPECT_THAT(driver.Click("Command4").Messages(), ElementsAre());
    EXPECT_THAT(driver.Text("List2"), StartsWith("本期红球胆码：范围>=1<=6\n2026115:   "));

    const auto told = driver.Click("Command6").Messages();
    ASSERT_THAT(told, ElementsAre(HasSubstr("红球胆码{正确率")));
    const std::string file = told[0].substr(std::string("文件已经保存到").size());
    driver.Set("TxtMzs", "0");
    driver.Answer("file", file);
    driver.Click("Command5");
    EXPECT_EQ(driver.Text("ZDY_XDM"), "自定义寻胆码--" + file);
    EXPECT_EQ(driver.Text("TxtMzs"), "1");
    EXPECT_EQ(Stored(), "a7{tornelka}a6-a1{tornelka}a1+1{tornelka}a2{tornelka}{tornelka}");
}

TEST_F(ToolsRoad, StartsAnewOrEndsInTheMiddleOfARun) {
    const auto runWith = [this](const Json& command) {
        driver.Do({{"do", "during"}, {"command", command}});
        const Reply reply = driver.Click("Command4");
        EXPECT_EQ(reply["during"]["ok"], true);
        EXPECT_THAT(reply.Messages(), ElementsAre());
    };
    driver.Set("txtSdate", "2003001");
    runWith({{"do", "click"}, {"control", "Command4"}});
    EXPECT_THAT(driver.Text("List2"), StartsWith("本期红球胆码"));
    runWith({{"do", "close"}});
    driver.Menu("m_zdtxd");
    EXPECT_THAT(driver.Text("List2"), StartsWith("使用帮助："));
}

}  // namespace
}  // namespace ssq
