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

const SiteDraw kDraws[] = {
    {"2003001", "2003年02月23日", "10,11,12,13,26,28+11"},
    {"2003002", "2003年02月27日", "04,09,19,20,21,26+12"},
    {"2003003", "2003年03月02日", "01,07,10,23,28,32+16"},
    {"2003004", "2003年03月06日", "04,06,07,10,13,25+03"},
    {"2003005", "2003年03月09日", "04,06,15,17,30,31+16"},
    {"2003006", "2003年03月13日", "01,03,10,21,26,27+06"},
};

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
    Serve({ListPage({kDraws[2], kDraws[1]}), ListPage({kDraws[0]})});
    EXPECT_THAT(Choose("m_u"), ElementsAre("共更新3期!"));
    EXPECT_EQ(Latest(), "最新:2003003");
    EXPECT_EQ(driver.Text("cboEdate"), "2003003");

    Serve({ListPage({kDraws[5], kDraws[4]}), ListPage({kDraws[3], kDraws[2]})});
    Sql("create trigger stop before insert on cphm when new.kjqh=2003005 "
        "begin select raise(abort,'disk full'); end");
    EXPECT_THAT(Choose("m_u"), ElementsAre("disk full"));
    EXPECT_EQ(Latest(), "最新:2003004");
    Sql("drop trigger stop");
    EXPECT_THAT(Choose("m_u"), ElementsAre("共更新2期!"));
    EXPECT_THAT(Choose("m_u"), ElementsAre("数据为最新，无需更新！"));
    const QJsonArray rows = Sql("select kjqh,qid,nnDate from cphm order by qid");
    ASSERT_EQ(rows.size(), 6);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(rows[i][0].toVariant().toInt(), 2003001 + i);
        EXPECT_EQ(rows[i][1].toVariant().toInt(), 1 + i);
    }

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
    Serve({ListPage({kDraws[1], kDraws[0]})});
    Choose("m_u");
    driver.Menu("m_sale");
    EXPECT_EQ(driver.Text("frmSale"), " 在线销售分析");
    EXPECT_EQ(driver.Text("cboSdate"), "");
    driver.Set("cboSdate", "2003001");
    std::vector<std::string> numbers;
    for (int n = 33; n >= 1; --n) numbers.push_back((n < 10 ? "0" : "") + std::to_string(n));
    site.Serve("/pages/info/ssq/inc/red_fsfx_inc.php",
               Always(SalesPage({{"03002", numbers, {"26", "21", "20", "19", "09", "04"}},
                                 {"当前期：03003", numbers, {}}})));
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command2")),
                ElementsAre(HasSubstr("更新完成,共更新")));
    const QJsonObject button = driver.Do({{"do", "get"}, {"control", "Command2"}});
    EXPECT_EQ(button["text"].toString().toStdString(), "更新销售数据");
    EXPECT_TRUE(button["enabled"].toBool());
    const QJsonObject grid = driver.Grid("vs1");
    EXPECT_EQ(grid["rows"].toInt(), 4);
    EXPECT_EQ(DriverClient::Cell(grid, 2, 0), "2003002");
    EXPECT_EQ(DriverClient::Cell(grid, 2, 34), "1:3:2");
    EXPECT_EQ(DriverClient::Back(grid, 2, 8), "#E69999");
    EXPECT_EQ(DriverClient::Back(grid, 2, 15), "#E69999");
    EXPECT_EQ(DriverClient::Back(grid, 2, 16), "#D0EAE8");
    EXPECT_EQ(DriverClient::Cell(grid, 3, 0), "2003003");
    EXPECT_EQ(DriverClient::Cell(grid, 3, 33), "01");
}

}  // namespace
}  // namespace ssq
