#include "acquire/KjData.h"

#include "base/text.h"
#include "support/UpdateTest.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const SiteDraw kFirst{"2003001", "2003年02月23日", "10,11,12,13,26,28+11"};
const SiteDraw kSecond{"2003002", "2003年02月27日", "4, 09,19,20,21,26 + 12"};
const SiteDraw kThird{"2003003", "2003年03月02日", "01,07,10,23,28,32+16"};
const SiteDraw kFourth{"2003004", "2003年03月06日", "04,06,07,10,13,25+03"};

// Longer than the time between two pumps.
constexpr std::chrono::milliseconds kOverAPump{20};

class DrawUpdate : public UpdateTest {
  protected:
    void Serve(const std::vector<std::string>& pages, std::chrono::milliseconds delay = {}) {
        site.Serve("/zjfc/asp_ssq.asp", ListPages(pages, delay));
    }
    bool Update() { return UpdateDraws(database.session()); }
    std::vector<std::string> Issues() {
        return database.Texts("select kjqh from cphm order by id");
    }
};

TEST_F(DrawUpdate, StopsAtTheFirstKnownDrawAndNumbersOn) {
    database.AddDraw(2003001, "2003-02-23", "10,11,12,13,26,28", 11);
    database.Run("update cphm set qid=7");
    const SiteDraw known{"2003001", "2003年02月23日", "not looked at"};
    Serve({ListPage({kFourth, kThird}), ListPage({kSecond, known, {"x", "x", "x"}})});
    EXPECT_TRUE(Update());
    EXPECT_THAT(Told(), ElementsAre("共更新3期!"));
    EXPECT_THAT(database.Texts("select kjqh,qid from cphm order by id"),
                ElementsAre("2003001", "7", "2003002", "8", "2003003", "9", "2003004", "10"));
}

TEST_F(DrawUpdate, TellsOfASiteThatCannotBeReadAndInsertsNothing) {
    const std::string noMark = "错误!开始标记位置为:0结束标志位置为:0";
    Serve({});
    EXPECT_FALSE(Update());
    EXPECT_THAT(Told(), ElementsAre(noMark, "读不到网站上的最新期号，请稍候再试！"));
    const std::string moved = Replace(ListPage({kSecond, kFirst}), "投注额", "销售额");
    Serve({moved});
    EXPECT_FALSE(Update());
    EXPECT_THAT(Told(), ElementsAre(moved + noMark, "无数据！"));
    Serve({"qishu=9999999' or '1\""});
    EXPECT_FALSE(Update());
    EXPECT_THAT(Told(), ElementsAre("网站上的最新期号不正确：9999999' or '1"));
    EXPECT_THAT(Issues(), IsEmpty());
}

TEST_F(DrawUpdate, RefusesEveryValueThatIsNotWhatItMustBe) {
    const struct {
        SiteDraw draw;
        const char* told;
    } kCases[] = {
        {{"2003002", "2003年02月30日", kSecond.numbers}, "2003002期的开奖日期不正确"},
        {{"2003002", "2003年02月27日');drop", kSecond.numbers}, "2003002期的开奖日期不正确"},
        {{"2003002", kSecond.date, "01,02,03,04,05,34+07"}, "2003002期的开奖号码不正确"},
        {{"2003002", kSecond.date, "01,02,03,04,05,05+07"}, "2003002期的开奖号码不正确"},
        {{"2003002", kSecond.date, "01,02,03,04,05,06+17"}, "2003002期的开奖号码不正确"},
        {{"2003002", kSecond.date, "01,02,03,04,05,06"}, "2003002期的开奖号码不正确"},
        {{"2003002", kSecond.date, "(select1),2,3,4,5,6+7"}, "2003002期的开奖号码不正确"},
        {{"2003002", kSecond.date, std::string(3 << 20, '1') + "+07"}, "2003002期的开奖号码不正确"},
        {{"2003002", kSecond.date, ""}, "2003002----无数据！"},
        {{"2003002", "", kSecond.numbers}, "无数据！"},
        {{"20030020", kSecond.date, kSecond.numbers}, "期号不正确：20030020"},
        {{"", kSecond.date, kSecond.numbers}, "无数据！"},
    };
    for (const auto& c : kCases) {
        Serve({ListPage({kThird, c.draw, kFirst})});
        EXPECT_FALSE(Update()) << c.told;
        const std::string told = Told().back();
        EXPECT_THAT(told, StartsWith(c.told));
        EXPECT_LT(told.size(), 300U);
        EXPECT_THAT(Issues(), IsEmpty()) << c.told;
    }
}

TEST_F(DrawUpdate, KeepsWhatEarlierPagesGaveWhenALaterOneHasNoData) {
    database.AddDraw(2003001, "2003-02-23", "10,11,12,13,26,28", 11);
    SiteDraw undated = kSecond;
    undated.date = "";
    Serve({ListPage({kFourth}), ListPage({kThird, undated})});
    EXPECT_TRUE(Update());
    EXPECT_EQ(Told().back(), "共更新1期!");
    EXPECT_THAT(Issues(), ElementsAre("2003001", "2003004"));
}

TEST_F(DrawUpdate, SurvivesWhatHappensBetweenTwoPages) {
    Serve({ListPage({kThird}), ListPage({kSecond}), ListPage({kThird})});
    EXPECT_FALSE(Update());
    EXPECT_THAT(Told(), ElementsAre("网站的开奖数据重复，无法更新！"));
    EXPECT_THAT(Issues(), IsEmpty());

    Serve({ListPage({kThird, kSecond}), ListPage({kFirst})}, kOverAPump);
    database.host().onPump = [this] {
        database.host().onPump = nullptr;
        EXPECT_TRUE(Update());  // a second update, which does all the work
    };
    EXPECT_FALSE(Update());
    EXPECT_THAT(Told(), ElementsAre("共更新3期!"));
    EXPECT_THAT(Issues(), ElementsAre("2003001", "2003002", "2003003"));

    database.Run("delete from cphm");
    database.host().onPump = [this] { database.host().Stop(); };
    EXPECT_FALSE(Update());
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_THAT(Issues(), IsEmpty());
}

}  // namespace
}  // namespace ssq
