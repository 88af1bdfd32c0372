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
        site.Serve(kListPath, ListPages(pages, delay));
    }
    std::vector<std::string> Update(const std::vector<std::string>& pages) {
        Serve(pages);
        updates.Draws();
        return Told();
    }
    std::vector<std::string> Issues() {
        return database.Texts("select kjqh from cphm order by id");
    }
};

TEST_F(DrawUpdate, StopsAtTheFirstKnownDrawAndNumbersOn) {
    database.AddDraw(2003001, "2003-02-23", "10,11,12,13,26,28", 11);
    database.Run("update cphm set qid=7");
    const SiteDraw known{"2003001", "2003年02月23日", "not looked at"};
    EXPECT_THAT(Update({ListPage({kFourth, kThird}), ListPage({kSecond, known, {"x", "x", "x"}})}),
                ElementsAre("共更新3期!"));
    EXPECT_EQ(status, "开奖数据：已更新 3 期");
    EXPECT_THAT(database.Texts("select kjqh,qid from cphm order by id"),
                ElementsAre("2003001", "7", "2003002", "8", "2003003", "9", "2003004", "10"));
}

TEST_F(DrawUpdate, TellsOfASiteThatCannotBeReadAndInsertsNothing) {
    const std::string noMark = "错误!开始标记位置为:0结束标志位置为:0";
    EXPECT_THAT(Update({}),
                ElementsAre(noMark, StartsWith("读不到网站上的最新期号，请稍候再试！")));
    EXPECT_THAT(status, StartsWith("开奖数据：网络不通，未更新：没有收到 127.0.0.1:"));
    const std::string moved = Replace(ListPage({kSecond, kFirst}), "投注额", "销售额");
    EXPECT_THAT(Update({moved}), ElementsAre(moved + noMark, "无数据！"));
    EXPECT_EQ(status, "开奖数据：未更新");
    for (const char* issue : {"9999999' or '1", "9999999"}) {
        EXPECT_THAT(Update({std::string("qishu=") + issue + "\""}),
                    ElementsAre(std::string("网站上的最新期号不正确：") + issue));
    }
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
        {{"2003367", kSecond.date, kSecond.numbers}, "期号不正确：2003367"},
        {{std::string(400, '9'), kSecond.date, kSecond.numbers}, "期号不正确：999"},
        {{"2003002", "2031年02月27日", kSecond.numbers}, "2003002期的开奖日期不正确"},
        {{"2099001", "2099年01月01日", kSecond.numbers}, "2099001期的开奖日期不正确"},
        {{"", kSecond.date, kSecond.numbers}, "无数据！"},
    };
    for (const auto& c : kCases) {
        const std::string told = Update({ListPage({kThird, c.draw, kFirst})}).back();
        EXPECT_THAT(told, StartsWith(c.told));
        EXPECT_LT(told.size(), 300U);
        EXPECT_THAT(Issues(), IsEmpty()) << c.told;
    }
}

TEST_F(DrawUpdate, LeavesNoGapWhereALaterPageFails) {
    database.AddDraw(2003001, "2003-02-23", "10,11,12,13,26,28", 11);
    SiteDraw undated = kSecond;
    undated.date = "";
    for (const std::string& failing :
         {ListPage({}), ListPage({kSecond, undated}), ListPage({undated})}) {
        EXPECT_EQ(Update({ListPage({kFourth, kThird}), failing}).back(),
                  "开奖列表的第2页读不到数据，没有更新任何一期，请稍候再试！");
        EXPECT_EQ(Update({ListPage({kFourth}), ListPage({kThird}), failing}).back(),
                  "开奖列表的第3页读不到数据，没有更新任何一期，请稍候再试！");
        EXPECT_THAT(Issues(), ElementsAre("2003001"));
    }
    EXPECT_EQ(Update({ListPage({kFourth, kThird, kSecond}), ListPage({})}).back(), "共更新3期!");
    EXPECT_THAT(Issues(), ElementsAre("2003001", "2003002", "2003003", "2003004"));
}

TEST_F(DrawUpdate, SurvivesWhatHappensBetweenTwoPages) {
    EXPECT_THAT(Update({ListPage({kThird}), ListPage({kSecond}), ListPage({kThird})}),
                ElementsAre("网站的开奖数据重复，无法更新！"));
    EXPECT_THAT(Issues(), IsEmpty());

    Serve({ListPage({kThird, kSecond}), ListPage({kFirst})}, kOverAPump);
    InBetween([this] { updates.Draws(); });  // a second update, which does all the work
    updates.Draws();
    EXPECT_THAT(Told(), ElementsAre("共更新3期!"));
    EXPECT_THAT(Issues(), ElementsAre("2003001", "2003002", "2003003"));

    database.Run("delete from cphm");
    InBetween([this] { database.host().Stop(); });
    updates.Draws();
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_THAT(Issues(), IsEmpty());
}

}  // namespace
}  // namespace ssq
