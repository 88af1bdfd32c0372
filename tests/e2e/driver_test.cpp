// The driver's own promises: one reply to each line, whatever the line, and windows in order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/DriverClient.h"

namespace ssq {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class DriverScript : public testing::Test {
  protected:
    static std::string Panel(const QJsonObject& reply) {
        return reply["panel"].toString().toStdString();
    }
    static std::string Modal(const QJsonObject& reply) {
        return reply["modal"].toString().toStdString();
    }

    DriverClient driver{SSQ_DELIVERED_DATABASE};
};

TEST_F(DriverScript, RefusesWithAReasonAndGoesOn) {
    struct Case {
        const char* line;
        const char* reason;
    };
    const Case cases[] = {
        {"", "no JSON object"},
        {"{\"do\":", "no JSON object"},
        {"[1]", "no JSON object"},
        {R"({})", "'do'"},
        {R"({"do":"fly"})", "unknown command 'fly'"},
        {R"({"do":"menu","entry":"m_none"})", "no menu entry 'm_none'"},
        {R"({"do":"menu","entry":"m_update"})", "is a menu"},
        {R"({"do":"panel","name":"frmZST"})", "no panel 'frmZST'"},
        {R"({"do":"click"})", "'control'"},
        {R"({"do":"click","control":"none"})", "no control 'none'"},
        {R"({"do":"click","control":"vs1"})", "no button"},
        {R"({"do":"click","control":"frmMsg"})", "hidden"},
        {R"({"do":"set","control":"cboSdate","value":7})", "'value' must be a text"},
        {R"({"do":"choose","control":"cboSdate","index":999999})", "no index 999999"},
        {R"({"do":"choose","control":"cboSdate","index":1.5})", "whole number"},
        {R"({"do":"grid","control":"bar1"})", "no grid"},
        {R"({"do":"chart","control":"vs1"})", "no chart"},
        {R"({"do":"mouse","control":"vs1","row":0,"col":0,"button":"left"})", "no cell 0,0"},
        {R"({"do":"answer","button":"maybe"})", "button must be"},
        {R"({"do":"screenshot","file":"/proc/none/x.png"})", "cannot write"},
        {R"({"do":"sql","text":"select nonsense"})", "nonsense"},
    };
    for (const Case& c : cases) {
        const QJsonObject reply = driver.SendLine(c.line);
        EXPECT_FALSE(reply["ok"].toBool(true)) << c.line;
        EXPECT_THAT(reply["error"].toString().toStdString(), HasSubstr(c.reason)) << c.line;
        EXPECT_EQ(Panel(reply), "frmMain") << c.line;
        EXPECT_THAT(DriverClient::Messages(reply), IsEmpty()) << c.line;
    }
}

TEST_F(DriverScript, KeepsTheOrderOfWindows) {
    EXPECT_EQ(Panel(driver.Menu("m_hostory")), "frmHistory");
    EXPECT_EQ(Panel(driver.Menu("m_zst_cg")), "frmZST");
    EXPECT_EQ(Panel(driver.Menu("m_hostory")), "frmHistory");  // raised again
    EXPECT_EQ(Panel(driver.Panel("frmMain")), "frmMain");

    const QJsonObject dialog = driver.Menu("m_rs");
    EXPECT_EQ(Modal(dialog), "frmXUEXI");
    EXPECT_EQ(Panel(dialog), "frmXUEXI");
    EXPECT_FALSE(driver.Send({{"do", "menu"}, {"entry", "m_zst_cg"}})["ok"].toBool(true));
    EXPECT_EQ(Panel(driver.Panel("frmZST")), "frmXUEXI");  // the modal one comes first
    const QJsonObject escaped = driver.Do({{"do", "key"}, {"control", "Text1"}, {"key", "Esc"}});
    EXPECT_EQ(Modal(escaped), "");
    EXPECT_EQ(Panel(escaped), "frmZST");

    EXPECT_EQ(Panel(driver.Do({{"do", "close"}})), "frmMain");
    EXPECT_EQ(Panel(driver.Panel("frmHistory")), "frmHistory");
    EXPECT_EQ(Panel(driver.Do({{"do", "close"}})), "frmMain");

    // The input ends with a dialog open.
    EXPECT_EQ(Modal(driver.Menu("m_sr")), "frmxxjl");
}

TEST_F(DriverScript, QuitsWithADialogOpen) {
    driver.Menu("m_rs");
    EXPECT_TRUE(driver.Do({{"do", "quit"}})["ok"].toBool());
    EXPECT_TRUE(driver.WaitForEnd());
}

TEST_F(DriverScript, TypesPicksAndPoints) {
    driver.Set("cboSdate", "2026100");
    driver.Set("cboEdate", "9999999");  // not in the list
    QJsonObject combo = driver.Do({{"do", "get"}, {"control", "cboEdate"}});
    EXPECT_EQ(combo["text"].toString(), "9999999");
    driver.Choose("cboEdate", 4);
    combo = driver.Do({{"do", "get"}, {"control", "cboEdate"}});
    EXPECT_EQ(combo["index"].toInt(), 4);
    EXPECT_EQ(combo["text"], combo["items"][4]);
    EXPECT_EQ(combo["text"].toString(), "2026110");

    driver.Menu("m_xuexi");
    const QJsonObject grid = driver.Grid("vs1");
    const int row = grid["rows"].toInt() - 2;
    const int col = grid["cols"].toInt() - 1;
    const auto press = [&](const char* button) {
        driver.Do(
            {{"do", "mouse"}, {"control", "vs1"}, {"row", row}, {"col", col}, {"button", button}});
        return driver.Grid("vs1")["selection"].toArray();
    };
    EXPECT_EQ(press("left"), (QJsonArray{row, col, row, col}));
    driver.Do({{"do", "select"},
               {"control", "vs1"},
               {"row", 2},
               {"col", 0},
               {"rowSel", 2},
               {"colSel", 1}});
    driver.Do({{"do", "key"}, {"control", "vs1"}, {"key", "Ctrl+C"}});
    const std::string copied = driver.Do({{"do", "clipboard"}})["text"].toString().toStdString();
    EXPECT_THAT(copied,
                StartsWith(DriverClient::Cell(grid, 2, 0) + "," + DriverClient::Cell(grid, 2, 1)));
    EXPECT_EQ(press("right"), (QJsonArray{row, col, row, col}));
    const QJsonObject popup = driver.Send(
        {{"do", "popup"}, {"control", "vs1"}, {"row", row}, {"col", col}, {"entry", "m_none"}});
    EXPECT_FALSE(popup["ok"].toBool(true));
}

}  // namespace
}  // namespace ssq
