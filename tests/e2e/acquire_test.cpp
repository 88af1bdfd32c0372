// The road of new data from the sites into the program, through the real window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    std::vector<std::string> UpdateDraws(const std::vector<std::string>& pages) {
        site.Serve("/zjfc/asp_ssq.asp", ListPages(pages));
        return driver.Menu("m_u").Messages();
    }
    std::vector<std::string> Choose(const char* entry, const char* path, const std::string& page) {
        site.Serve(path, Always(page));
        return driver.Menu(entry).Messages();
    }

    PageServer site;
    DriverClient driver;
};

TEST_F(AcquireRoad, BringsAnEmptyHistoryUpToDate) {
    driver.Sql("delete from cphm");
    driver.Sql("delete from cpjc");
    driver.Sql("insert into cpjc(kjqh,xqjc) values(2003003,1)");
    driver.Do({{"do", "site"}, {"url", site.url()}});
    EXPECT_THAT(UpdateDraws({ListPage({Draw(3), Draw(2)}), ListPage({Draw(1)})}),
                ElementsAre("共更新3期!"));
    EXPECT_EQ(driver.Text("cboEdate"), "2003003");

    const std::vector<std::string> newer = {ListPage({Draw(6), Draw(5)}),
                                            ListPage({Draw(4), Draw(3)})};
    driver.Sql(
        "create trigger stop before insert on cphm when new.kjqh=2003005 "
        "begin select raise(abort,'disk full'); end");
    EXPECT_THAT(UpdateDraws(newer), ElementsAre("保存开奖数据失败：disk full"));
    EXPECT_EQ(driver.Get("bar1")["panels"][0], "最新:2003004");
    driver.Sql("drop trigger stop");
    EXPECT_THAT(UpdateDraws(newer), ElementsAre("共更新2期!"));
    EXPECT_THAT(UpdateDraws(newer), ElementsAre("数据为最新，无需更新！"));
    EXPECT_EQ(driver.Sql("select id from cphm where kjqh=2003000+qid and qid<=6").size(), 6U);

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
    EXPECT_THAT(driver.Click("Command2").Messages(), ElementsAre(StartsWith("更新完成,共更新")));
    const Reply button = driver.Get("Command2");
    EXPECT_EQ(button["text"], "更新销售数据");
    EXPECT_EQ(button["enabled"], true);
    const Reply grid = driver.Grid("vs1");
    EXPECT_EQ(grid.Cell(2, 34), "3:0:3");
    EXPECT_EQ(grid.Back(2, 2), "#E69999");
    EXPECT_EQ(grid.Cell(3, 0), "2003007");
}

TEST_F(AcquireRoad, UpdatesAllFromTheGatewayBesideTheProgram) {
    std::filesystem::create_symlink(GatewayProgram(), driver.folder() / "ssq_gateway");
    std::filesystem::copy_file(SourceFolder() / "data" / "draws.csv",
                               driver.folder() / "data" / "draws.csv");
    driver.Do({{"do", "site"}, {"url", "http://127.0.0.1:8615"}});
    driver.Sql("delete from cphm where kjqh>2026094");
    driver.Sql("delete from cpjc where kjqh>2026094");
    driver.Sql("update cphm set cqsx='x' where cqsx is null");
    const std::string sum =
        "开奖数据：已更新 20 期；奖池信息：已更新 1 期，2026096期尚未公布；"
        "出球顺序：2026095期尚未公布";
    EXPECT_THAT(driver.Click("cmdUpdateAll").Messages(), ElementsAre(sum + "。"));
    EXPECT_EQ(driver.Get("bar1")["panels"][2], sum);
    EXPECT_EQ(driver.Get("bar1")["panels"][0], "最新:2026114");
    EXPECT_EQ(driver.Text("cboEdate"), "2026114");
}

}  // namespace
}  // namespace ssq
