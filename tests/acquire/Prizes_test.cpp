#include "acquire/Prizes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/text.h"
#include "support/LotterySite.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

using Prizes = std::array<SitePrize, 6>;

const Prizes kPrizes = {{{"3", "6,234,567"},
                         {"98", "123456"},
                         {"1,044", "3000"},
                         {"50000", "200"},
                         {"1000000", "10"},
                         {"7654321", "5"}}};

class PrizeUpdate : public testing::Test {
  protected:
    PrizeUpdate() {
        database.session().deployment.resultsHost = site.url();
        database.AddDraw(2009001, "2009-01-01", "01,02,03,04,05,06", 7);
        database.AddDraw(2009002, "2009-01-04", "01,02,03,04,05,06", 7);
        database.AddDraw(2009003, "2009-01-06", "01,02,03,04,05,06", 7);
        database.Run("insert into cpjc(kjqh,xqjc) values(2009001,5)");
        Notice("2009002", NoticePage("160,000,000", "271828182", kPrizes));
        Notice("2009003", NoticePage("150000000", "1", kPrizes));
        site.Serve("/zjfc/06asp_gg_ssq.asp", [this](const std::string& query) {
            return PageReply{notices[query.substr(query.find('=') + 1)]};
        });
    }
    void Notice(const std::string& issue, const std::string& page) { notices[issue] = Gbk(page); }
    int Update() {
        database.host().boxes.clear();
        return UpdatePrizes(database.session());
    }
    std::vector<std::string> Texts() { return database.host().Texts(); }
    std::int64_t Newest() { return database.Run("select max(kjqh) from cpjc").Int(0); }

    std::map<std::string, std::string> notices;
    TestDatabase database;
    PageServer site;
};

TEST_F(PrizeUpdate, WritesEveryNoticeBehindTheNewestRow) {
    EXPECT_EQ(Update(), 2);
    EXPECT_THAT(Texts(), ElementsAre("共更新2期！"));
    EXPECT_THAT(site.requests(),
                ElementsAre(EndsWith("?qishu=2009002"), EndsWith("?qishu=2009003")));
    const Recordset row = database.Run("select * from cpjc where kjqh=2009002");
    const std::map<std::string, std::int64_t> expected = {
        {"xqjc", 271'828'182}, {"tze", 160'000'000}, {"zs1d", 3},          {"mz1d", 6'234'567},
        {"jj1d", 18'703'701},  {"jj2d", 12'098'688}, {"zs3d", 1044},       {"jj3d", 3'132'000},
        {"jj4d", 10'000'000},  {"zs5d", 1'000'000},  {"jj5d", 10'000'000}, {"zs6d", 7'654'321},
        {"mz6d", 5},           {"jj6d", 38'271'605}, {"zfj", 92'205'994}};
    for (const auto& [column, value] : expected) EXPECT_EQ(row.Int(column), value) << column;
    EXPECT_EQ(Update(), 0);
    EXPECT_THAT(Texts(), ElementsAre("数据为最新，无需更新！"));
}

TEST_F(PrizeUpdate, WritesADrawWithoutAFirstPrize) {
    Prizes none = kPrizes;
    none[0] = {"0", "0"};
    Notice("2009002", NoticePage("1", "1", none));
    EXPECT_EQ(Update(), 2);
    EXPECT_EQ(database.Run("select zs1d+mz1d+jj1d from cpjc where kjqh=2009002").Int(0), 0);
}

TEST_F(PrizeUpdate, StopsAtANoticeNotYetPublishedAndGoesOnLater) {
    Notice("2009003", NoticePage("150000000", "0", kPrizes));
    EXPECT_EQ(Update(), 1);
    EXPECT_THAT(Texts(), ElementsAre("无数据，请稍候再试！！"));
    Notice("2009003", "");
    EXPECT_EQ(Update(), 0);
    EXPECT_EQ(Texts().front(), "错误!开始标记位置为:0结束标志位置为:0");
    EXPECT_EQ(Texts().back(), "无数据，请稍候再试！！");
    EXPECT_EQ(Newest(), 2009002);
    Notice("2009003", NoticePage("150000000", "9", kPrizes));
    EXPECT_EQ(Update(), 1);
    EXPECT_THAT(Texts(), ElementsAre("共更新1期！"));
}

TEST_F(PrizeUpdate, NamesTheIssueAndThePrizeThatDoesNotFit) {
    const auto with = [](std::size_t level, const SitePrize& prize) {
        Prizes prizes = kPrizes;
        prizes[level] = prize;
        return NoticePage("1", "1", prizes);
    };
    Prizes rich = kPrizes;
    rich[0] = {"1", "2000000000"};
    rich[1] = {"1", "147483648"};
    const struct {
        std::string page;
        const char* told;
    } kCases[] = {
        {with(0, {"2147483648", "0"}), "2009003期的一等奖注数不正确：2147483648"},
        {with(1, {"1", "2147483648"}), "2009003期的二等奖单注奖金不正确：2147483648"},
        {with(2, {"65536", "32768"}), "2009003期的三等奖奖金超出范围：65536×32768"},
        {with(4, {"-1", "10"}), "2009003期的五等奖注数不正确：-1"},
        {with(5, {"1'", "10"}), "2009003期的六等奖注数不正确：1'"},
        {with(3, {"1", "(select1)"}), "2009003期的四等奖单注奖金不正确：(select1)"},
        {NoticePage("1", "1", rich), "2009003期的总奖金超出范围："},
        {NoticePage("1);dropTABLEcphm", "1", kPrizes),
         "2009003期的投注总额不正确：1);dropTABLEcphm"},
        {NoticePage("1", "1,(select2)", kPrizes), "2009003期的未中出奖金不正确：1,(select2)"},
        {NoticePage("1", "1e300", kPrizes), "2009003期的未中出奖金不正确：1e300"},
    };
    Update();
    database.Run("delete from cpjc where kjqh=2009003");
    for (const auto& c : kCases) {
        Notice("2009003", c.page);
        EXPECT_EQ(Update(), 0);
        EXPECT_THAT(Texts(), ElementsAre(HasSubstr(c.told)));
        EXPECT_EQ(Newest(), 2009002);
    }
}

TEST_F(PrizeUpdate, ShowsThePageWhereAMarkerIsMissing) {
    Notice("2009002", Replace(NoticePage("1", "1", kPrizes), "三等奖", "三级奖"));
    EXPECT_EQ(Update(), 0);
    EXPECT_EQ(Texts().back(), "2009002期的二等奖注数不正确：");
    EXPECT_EQ(Newest(), 2009001);
    database.Run("delete from cpjc");
    EXPECT_EQ(Update(), 0);
    EXPECT_THAT(Texts(), ElementsAre("数据为最新，无需更新！"));
}

}  // namespace
}  // namespace ssq
