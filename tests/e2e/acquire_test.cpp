// The road of new data from the sites into the program, through the real window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>

#include "support/DriverClient.h"
#include "support/LotterySite.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

// Draw 1 to 6 of 2003.
SiteDraw Draw(int number) {
    const std::string digit = std::to_string(number);
    return {"200300" + digit, "2003年03月0" + digit + "日", "01,07,10,23,28,32+16"};
}

class AcquireRoad : public testing::Test {
  protected:
    QJsonArray Sql(const char* text) {
        return driver.Do({{"do", "sql"}, {"text", text}})["rows"].toArray();
    }
    std::vector<std::string> UpdateDraws(const std::vector<std::string>& pages) {
        site.Serve("/zjfc/asp_ssq.asp", ListPages(pages));
        return DriverClient::Messages(driver.Menu("m_u"));
    }
    std::vector<std::string> Choose(const char* entry, const char* path, const std::string& page) {
        site.Serve(path, Always(page));
        return DriverClient::Messages(driver.Menu(entry));
    }
    QString Latest() {
        return driver.Do({{"do", "get"}, {"control", "bar1"}})["panels"].toArray()[0].toString();
    }

    PageServer site;
    DriverClient driver{SSQ_DELIVERED_DATABASE};
};

TEST_F(AcquireRoad, BringsAnEmptyHistoryUpToDate) {
    Sql("delete from cphm");
    Sql("delete from cpjc");
    Sql("insert into cpjc(kjqh,xqjc) values(2003003,1)");
    driver.Do({{"do", "site"}, {"url", QString::fromStdString(site.url())}});
    EXPECT_THAT(UpdateDraws({ListPage({Draw(3), Draw(2)}), ListPage({Draw(1)})}),
                ElementsAre("共更新3期!"));
    EXPECT_EQ(driver.Text("cboEdate"), "2003003");

    const std::vector<std::string> newer = {ListPage({Draw(6), Draw(5)}),
                                            ListPage({Draw(4), Draw(3)})};
    Sql("create trigger stop before insert on cphm when new.kjqh=2003005 "
        "begin select raise(abort,'disk full'); end");
    EXPECT_THAT(UpdateDraws(newer), ElementsAre("disk full"));
    EXPECT_EQ(Latest(), u"最新:2003004");
    Sql("drop trigger stop");
    EXPECT_THAT(UpdateDraws(newer), ElementsAre("共更新2期!"));
    EXPECT_THAT(UpdateDraws(newer), ElementsAre("数据为最新，无需更新！"));
    EXPECT_EQ(Sql("select id from cphm where kjqh=2003000+qid and qid<=6").size(), 6);

    const SitePrize prize{"2", "100"};
    const std::string notice =
        NoticePage("1000", "500", {prize, prize, prize, prize, prize, prize});
    EXPECT_THAT(Choose("up_jc", "/zjfc/06asp_gg_ssq.asp", notice), ElementsAre("共更新3期！"));
    const std::string order = OrderPage({"23", "01", "07", "32", "10", "28"});
    EXPECT_THAT(Choose("up_cq", "/trend/analysessq.do", order), ElementsAre("共更新6期！"));
    EXPECT_THAT(Choose("up_cq", "/trend/analysessq.do", order),
                ElementsAre("已经是最新，无需更新！"));

    const std::vector<std::string> numbers = DescendingNumbers();
    Choose("m_sale", "/pages/info/ssq/inc/red_fsfx_inc.php",
           SalesPage({{"03006", numbers, {"32", "28", "23", "10", "07", "01"}},
                      {"当前期：03007", numbers, {}}}));
    driver.Set("cboSdate", "2003001");
    EXPECT_THAT(DriverClient::Messages(driver.Click("Command2")),
                ElementsAre(StartsWith("更新完成,共更新")));
    const QJsonObject button = driver.Do({{"do", "get"}, {"control", "Command2"}});
    EXPECT_EQ(button["text"].toString(), u"更新销售数据");
    EXPECT_TRUE(button["enabled"].toBool());
    const QJsonObject grid = driver.Grid("vs1");
    EXPECT_EQ(DriverClient::Cell(grid, 2, 34), "3:0:3");
    EXPECT_EQ(DriverClient::Back(grid, 2, 2), "#E69999");
    EXPECT_EQ(DriverClient::Cell(grid, 3, 0), "2003007");
}

}  // namespace
}  // namespace ssq
