// The road of new data from the sites into the program, through the real window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>

#include "support/DriverClient.h"
#include "support/LotterySite.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Draw 1 to 6 of 2003.
SiteDraw Draw(int number) {
    const std::string digit = std::to_string(number);
    return {"200300" + digit, "2003年03月0" + digit + "日", "01,07,10,23,28,32+16"};
}

class AcquireRoad : public testing::Test {
  protected:
    AcquireRoad() {
        Sql("delete from cphm");
        Sql("delete from cpjc");
        Sql("insert into cpjc(kjqh,xqjc) values(2003003,1)");
        driver.Do({{"do", "site"}, {"url", QString::fromStdString(site.url())}});
    }
    QJsonArray Sql(const char* text) {
        return driver.Do({{"do", "sql"}, {"text", text}})["rows"].toArray();
    }
    void Serve(std::vector<std::string> pages) {
        site.Serve("/zjfc/asp_ssq.asp", ListPages(std::move(pages)));
    }
    std::vector<std::string> Choose(const char* entry) {
        return DriverClient::Messages(driver.Menu(entry));
    }
    std::string Latest() {
        const QJsonObject reply = driver.Do({{"do", "get"}, {"control", "bar1"}});
        return reply["panels"].toArray()[0].toString().toStdString();
    }

    PageServer site;
    DriverClient driver{SSQ_DELIVERED_DATABASE};
};

TEST_F(AcquireRoad, BringsDrawsPrizesAndOrderUpToDate) {
    Serve({ListPage({Draw(3), Draw(2)}), ListPage({Draw(1)})});
    EXPECT_THAT(Choose("m_u"), ElementsAre("共更新3期!"));
    EXPECT_EQ(Latest(), "最新:2003003");
    EXPECT_EQ(driver.Text("cboEdate"), "2003003");

    Serve({ListPage({Draw(6), Draw(5)}), ListPage({Draw(4), Draw(3)})});
    Sql("create trigger stop before insert on cphm when new.kjqh=2003005 "
        "begin select raise(abort,'disk full'); end");
    EXPECT_THAT(Choose("m_u"), ElementsAre("disk full"));
    EXPECT_EQ(Latest(), "最新:2003004");
    Sql("drop trigger stop");
    EXPECT_THAT(Choose("m_u"), ElementsAre("共更新2期!"));
    EXPECT_THAT(Choose("m_u"), ElementsAre("数据为最新，无需更新！"));
    EXPECT_EQ(Sql("select id from cphm where kjqh=2003000+qid and qid<=6").size(), 6);

    const SitePrize prize{"2", "100"};
    const std::string notice =
        NoticePage("1000", "500", {prize, prize, prize, prize, prize, prize});
    site.Serve("/zjfc/06asp_gg_ssq.asp", [&](const std::string& query) {
        return PageReply{query == "qishu=2003006" ? std::string() : Gbk(notice)};
    });
    EXPECT_EQ(Choose("up_jc").back(), "无数据，请稍候再试！！");
    EXPECT_EQ(Sql("select zfj from cpjc where zfj=1200").size(), 2);
    site.Serve("/zjfc/06asp_gg_ssq.asp", Always(notice));
    EXPECT_THAT(Choose("up_jc"), ElementsAre("共更新1期！"));

    site.Serve("/trend/analysessq.do", Always(OrderPage({"03", "01", "02", "06", "05", "04"})));
    EXPECT_THAT(Choose("up_cq"), ElementsAre("共更新6期！"));
    EXPECT_THAT(Choose("up_cq"), ElementsAre("已经是最新，无需更新！"));
}

TEST_F(AcquireRoad, ShowsTheSalesOfTheRunningIssue) {
    Serve({ListPage({Draw(2), Draw(1)})});
    Choose("m_u");
    driver.Menu("m_sale");
    EXPECT_EQ(driver.Text("frmSale"), " 在线销售分析");
    EXPECT_EQ(driver.Text("cboSdate"), "");
    driver.Set("cboSdate", "2003001");
    const std::vector<std::string> numbers = DescendingNumbers();
    site.Serve("/pages/info/ssq/inc/red_fsfx_inc.php",
               Always(SalesPage({{"03002", numbers, {"32", "28", "23", "10", "07", "01"}},
                                 {"当前期：03003", numbers, {}}})));
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command2")),
                ElementsAre(HasSubstr("更新完成,共更新")));
    const QJsonObject button = driver.Do({{"do", "get"}, {"control", "Command2"}});
    EXPECT_EQ(button["text"].toString().toStdString(), "更新销售数据");
    EXPECT_TRUE(button["enabled"].toBool());
    const QJsonObject grid = driver.Grid("vs1");
    EXPECT_EQ(grid["rows"].toInt(), 4);
    EXPECT_EQ(DriverClient::Cell(grid, 2, 0), "2003002");
    EXPECT_EQ(DriverClient::Cell(grid, 2, 34), "3:0:3");
    EXPECT_EQ(DriverClient::Back(grid, 2, 2), "#E69999");
    EXPECT_EQ(DriverClient::Cell(grid, 3, 0), "2003003");
}

}  // namespace
}  // namespace ssq
