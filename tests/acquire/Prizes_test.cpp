#include "base/text.h"
#include "support/UpdateTest.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using Prizes = std::array<SitePrize, 6>;

const Prizes kPrizes = {{{"3", "6,234,567"},
                         {"0", "0"},
                         {"1,044", "3000"},
                         {"50000", "200"},
                         {"1000000", "10"},
                         {"7654321", "5"}}};

class PrizeUpdate : public UpdateTest {
  protected:
    PrizeUpdate() {
        database.AddDraw(2009001, "2009-01-01", "01,02,03,04,05,06", 7);
        database.AddDraw(2009002, "2009-01-04", "01,02,03,04,05,06", 7);
        database.Run("insert into cpjc(kjqh,xqjc) values(2009001,5)");
    }
    std::vector<std::string> Update(const std::string& notice) {
        site.Serve(kNoticePath, Always(notice));
        updates.Prizes();
        return Told();
    }
};

TEST_F(PrizeUpdate, WritesEveryNoticeBehindTheNewestRow) {
    database.AddDraw(2009003, "2009-01-06", "01,02,03,04,05,06", 7);
    const std::string notice = NoticePage("160,000,000", "271828182", kPrizes);
    EXPECT_THAT(Update(notice), ElementsAre("共更新2期！"));
    EXPECT_THAT(site.requests(),
                ElementsAre(HasSubstr("?qishu=2009002 "), HasSubstr("?qishu=2009003 ")));
    EXPECT_THAT(database.Texts("select xqjc,tze,zfj,zs1d,mz1d,jj1d,zs2d,jj2d,zs3d,mz3d,jj3d,"
                               "zs6d,mz6d,jj6d from cpjc where kjqh=2009002"),
                ElementsAre("271828182", "160000000", "80107306", "3", "6234567", "18703701", "0",
                            "0", "1044", "3000", "3132000", "7654321", "5", "38271605"));
    EXPECT_THAT(Update(notice), ElementsAre("数据为最新，无需更新！"));
    EXPECT_EQ(status, "奖池信息：已是最新");
}

TEST_F(PrizeUpdate, StartedASecondTimeTakesOverAndCountsTheRowsOfBoth) {
    database.AddDraw(2009003, "2009-01-06", "01,02,03,04,05,06", 7);
    database.AddDraw(2009004, "2009-01-08", "01,02,03,04,05,06", 7);
    const PageReply slow{.body = Gbk(NoticePage("160,000,000", "271828182", kPrizes)),
                         .delay = std::chrono::milliseconds(20)};
    site.Serve(kNoticePath, [&](const std::string&) { return slow; });
    InBetween([this] { updates.Prizes(); },
              [this] { return database.Texts("select kjqh from cpjc").size() == 2; });
    updates.Prizes();
    EXPECT_THAT(Told(), ElementsAre("共更新3期！"));
    EXPECT_EQ(status, "奖池信息：已更新 3 期");
    EXPECT_THAT(database.Texts("select kjqh from cpjc"),
                ElementsAre("2009001", "2009002", "2009003", "2009004"));
}

TEST_F(PrizeUpdate, StopsAtANoticeThatIsNotPublishedOrDoesNotParse) {
    const auto with = [](std::size_t level, const SitePrize& prize) {
        Prizes prizes = kPrizes;
        prizes[level] = prize;
        return NoticePage("1", "1", prizes);
    };
    Prizes rich = kPrizes;
    rich[0] = {"1", "2147483647"};
    const struct {
        std::string page;
        const char* told;
    } kCases[] = {
        {"", "无数据，请稍候再试！！"},
        {NoticePage("150000000", "0", kPrizes), "无数据，请稍候再试！！"},
        {Replace(NoticePage("1", "1", kPrizes), "三等奖", "三级奖"),
         "2009002期的二等奖注数不正确："},
        {with(0, {"2147483648", "0"}), "2009002期的一等奖注数不正确：2147483648"},
        {with(1, {"1", "2147483648"}), "2009002期的二等奖单注奖金不正确：2147483648"},
        {with(2, {"65536", "65537"}), "2009002期的三等奖奖金超出范围：65536×65537"},
        {with(4, {"-1", "10"}), "2009002期的五等奖注数不正确：-1"},
        {with(5, {"1'", "10"}), "2009002期的六等奖注数不正确：1'"},
        {with(3, {"1", "(select1)"}), "2009002期的四等奖单注奖金不正确：(select1)"},
        {NoticePage("1", "1", rich), "2009002期的总奖金超出范围：2208887252"},
        {NoticePage("1);drop", "1", kPrizes), "2009002期的投注总额不正确：1);drop"},
        {NoticePage("1", "1,(select2)", kPrizes), "2009002期的未中出奖金不正确：1,(select2)"},
        {NoticePage("1", "1e300", kPrizes), "2009002期的未中出奖金不正确：1e300"},
        {NoticePage("1e999", "1", kPrizes), "2009002期的投注总额不正确：1e999"},
        {with(1, {"1e999", "1"}), "2009002期的二等奖注数不正确：1e999"},
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(Update(c.page).back(), c.told);
        EXPECT_THAT(database.Texts("select kjqh from cpjc"), ElementsAre("2009001"));
    }
}

}  // namespace
}  // namespace ssq
