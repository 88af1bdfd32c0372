#include "acquire/KjData.h"

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
using testing::IsEmpty;
using testing::SizeIs;

const SiteDraw kFirst{"2003001", "2003年02月23日", "10,11,12,13,26,28+11"};
const SiteDraw kSecond{"2003002", "2003年02月27日", "4, 09,19,20,21,26 + 12"};
const SiteDraw kThird{"2003003", "2003年03月02日", "01,07,10,23,28,32+16"};
const SiteDraw kFourth{"2003004", "2003年03月06日", "04,06,07,10,13,25+03"};

class DrawUpdate : public testing::Test {
  protected:
    DrawUpdate() { database.session().deployment.resultsHost = site.url(); }

    void Serve(std::vector<std::string> pages) {
        site.Serve("/zjfc/asp_ssq.asp", ListPages(std::move(pages)));
    }
    bool Update() {
        database.host().boxes.clear();
        return UpdateDraws(database.session());
    }
    std::vector<std::string> Texts() { return database.host().Texts(); }
    // The first field of every row, as texts.
    std::string Column(const std::string& sql) {
        std::vector<std::string> texts;
        for (Recordset rows = database.Run(sql); !rows.eof(); rows.MoveNext()) {
            texts.push_back(rows.Text(0));
        }
        return Join(texts, " ");
    }
    std::string Issues() { return Column("select kjqh from cphm order by id"); }

    TestDatabase database;
    PageServer site;
};

TEST_F(DrawUpdate, FillsAnEmptyTableFromTheFirstDrawOn) {
    Serve({ListPage({kThird, kSecond}), ListPage({kFirst})});
    EXPECT_TRUE(Update());
    EXPECT_THAT(Texts(), ElementsAre("共更新3期!"));
    EXPECT_EQ(Issues(), "2003001 2003002 2003003");
    EXPECT_EQ(database.session().LatestIssue, "2003003");
    EXPECT_EQ(database.session().DrawCount, 3);
    // 27 February 2003 was a Thursday and the 27th of the lunar month.
    EXPECT_EQ(Column("select qid||'|'||kjhm||'|'||a1||','||a6||','||a7||'|'||kjDate||'|'||kjWeek||"
                     "'|'||nnDate||'|'||(cqsx is null) from cphm where kjqh=2003002"),
              "2|04,09,19,20,21,26|4,26,12|2003-02-27|5|27|1");
    // The first page is read once for its newest issue; nothing is asked for behind 2003001.
    EXPECT_THAT(site.requests(), ElementsAre(EndsWith("?pagenum=1"), EndsWith("?pagenum=1"),
                                             EndsWith("?pagenum=2")));
    EXPECT_FALSE(Update());
    EXPECT_THAT(Texts(), ElementsAre("数据为最新，无需更新！"));
}

TEST_F(DrawUpdate, StopsAtTheFirstKnownDrawAndNumbersOn) {
    database.AddDraw(2003001, "2003-02-23", "10,11,12,13,26,28", 11);
    database.Run("update cphm set qid=7");
    SiteDraw unreadable = kFirst;
    unreadable.numbers = "known rows are not looked at";
    SiteDraw hostile{"x", "x", "x"};
    Serve({ListPage({kFourth, kThird}), ListPage({kSecond, unreadable, hostile})});
    EXPECT_TRUE(Update());
    EXPECT_THAT(Texts(), ElementsAre("共更新3期!"));
    EXPECT_EQ(Column("select kjqh||':'||qid from cphm order by id"),
              "2003001:7 2003002:8 2003003:9 2003004:10");
}

TEST_F(DrawUpdate, GoesOnAfterAnInterruptedInsert) {
    Serve({ListPage({kThird, kSecond, kFirst})});
    database.Run(
        "create trigger stop before insert on cphm when new.kjqh=2003003 "
        "begin select raise(abort,'disk full'); end");
    EXPECT_TRUE(Update());
    EXPECT_THAT(Texts(), ElementsAre("disk full"));
    EXPECT_EQ(Issues(), "2003001 2003002");
    EXPECT_EQ(database.session().LatestIssue, "2003002");
    database.Run("drop trigger stop");
    EXPECT_TRUE(Update());
    EXPECT_THAT(Texts(), ElementsAre("共更新1期!"));
    EXPECT_EQ(Column("select qid from cphm order by id"), "1 2 3");
}

TEST_F(DrawUpdate, TellsOfASiteThatCannotBeReadAndInsertsNothing) {
    Serve({});
    EXPECT_FALSE(Update());
    EXPECT_THAT(Texts(), ElementsAre("错误!开始标记位置为:0结束标志位置为:0",
                                     "读不到网站上的最新期号，请稍候再试！"));

    const std::string moved = Replace(ListPage({kSecond, kFirst}), "投注额", "销售额");
    Serve({moved});
    EXPECT_FALSE(Update());
    EXPECT_THAT(Texts(), ElementsAre(moved + "错误!开始标记位置为:0结束标志位置为:0", "无数据！"));

    site.Serve("/zjfc/asp_ssq.asp", [](const std::string&) {
        PageReply reply{Gbk(ListPage({kSecond, kFirst}))};
        reply.cutAt = reply.body.size() / 2;
        return reply;
    });
    EXPECT_FALSE(Update());
    EXPECT_THAT(Texts(), SizeIs(2));
    EXPECT_EQ(Issues(), "");
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
        ASSERT_THAT(Texts(), testing::Not(IsEmpty()));
        EXPECT_THAT(Texts().back(), HasSubstr(c.told));
        EXPECT_LT(Texts().back().size(), 300U);
        EXPECT_EQ(Issues(), "") << c.told;
    }
    Serve({"qishu=9999999' or '1\""});
    EXPECT_FALSE(Update());
    EXPECT_THAT(Texts(), ElementsAre("网站上的最新期号不正确：9999999' or '1"));
}

TEST_F(DrawUpdate, KeepsWhatEarlierPagesGaveWhenALaterOneHasNoData) {
    database.AddDraw(2003001, "2003-02-23", "10,11,12,13,26,28", 11);
    SiteDraw undated = kSecond;
    undated.date = "";
    Serve({ListPage({kFourth}), ListPage({kThird, undated})});
    EXPECT_TRUE(Update());
    EXPECT_EQ(Texts().back(), "共更新1期!");
    EXPECT_EQ(Issues(), "2003001 2003004");
}

TEST_F(DrawUpdate, EndsOnAListThatRepeatsItselfOrWhenTheProgramCloses) {
    Serve({ListPage({kThird}), ListPage({kSecond}), ListPage({kThird})});
    EXPECT_FALSE(Update());
    EXPECT_THAT(Texts(), ElementsAre("网站的开奖数据重复，无法更新！"));
    site.Serve("/zjfc/asp_ssq.asp", [](const std::string&) {
        PageReply reply{Gbk(ListPage({kThird}))};
        reply.delay = std::chrono::milliseconds(20);
        return reply;
    });
    database.host().onPump = [this] { database.host().Stop(); };
    EXPECT_FALSE(Update());
    EXPECT_THAT(Texts(), IsEmpty());
    EXPECT_EQ(Issues(), "");
}

TEST_F(DrawUpdate, LeavesTheWorkToASecondOneStartedInBetween) {
    site.Serve("/zjfc/asp_ssq.asp", [](const std::string& query) {
        const bool first = query == "pagenum=1";
        PageReply reply{Gbk(first ? ListPage({kThird, kSecond}) : ListPage({kFirst}))};
        reply.delay = std::chrono::milliseconds(20);
        return reply;
    });
    database.host().onPump = [this] {
        database.host().onPump = nullptr;
        EXPECT_TRUE(UpdateDraws(database.session()));
    };
    EXPECT_FALSE(Update());
    EXPECT_THAT(Texts(), ElementsAre("共更新3期!"));
    EXPECT_EQ(Issues(), "2003001 2003002 2003003");
}

}  // namespace
}  // namespace ssq
