#include "banker/fenXi.h"
#include "base/combinations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;

TEST(ComboLists, KeepTheDictionaryOrderAndTheirDifferentTexts) {
    EXPECT_THAT(ComboList1("01,,2"), ElementsAre("1", "2", ""));
    EXPECT_THAT(ComboList2("01,02,,3"), ElementsAre("01,02", "01,3", "02,3", ""));
    EXPECT_THAT(ComboList3("01,02,03,04"), ElementsAre("1,2,3", "1,2,4", "1,3,4", "2,3,4", ""));
    EXPECT_THAT(ComboList4("1,2,3,4"), ElementsAre("1,2,3,4", ""));
    EXPECT_THAT(ComboList5("1,2,3,4"), ElementsAre(""));
    const auto five = ComboList5("0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,23");
    ASSERT_EQ(five.size(), 33649U + 1);
    EXPECT_EQ(five.front(), "0,1,2,3,4");
    EXPECT_EQ(five[33648], "18,19,20,21,23");
}

// Round 0 aims at the first text, round 1 at the second; positions 0 to 5 are the draw behind it.
const std::vector<std::string> kDraws = {
    "01,02,03,04,05,06", "01,07,08,09,10,11", "02,12,13,14,15,16",
    "01,17,18,19,20,21", "22,23,24,25,26,27", "01,28,29,30,31,32",
};

struct RateCase {
    const char* formula;
    int xxqs;
    double rate;
};

TEST(FormulaHitRate, CountsOneRoundMoreThanItsDivisor) {
    TestHost host;
    const RateCase cases[] = {
        {"0", 1, 100},     // round 0: 01 hits; round 1: 02 misses; one hit over one
        {"6", 1, 200},     // 02 in round 0, 01 in round 1
        {"0,6", 1, 200},   // either position is enough
        {"5", 1, 0},       // 11 and 16 miss
        {"0,12", 1, 100},  // 01 twice in round 0 is one hit round; round 1: 02 and 22 miss
    };
    for (const RateCase& c : cases) {
        EXPECT_EQ(FormulaHitRate(host, kDraws, c.formula, c.xxqs), c.rate) << c.formula;
    }
}

class Learning : public testing::Test {
  protected:
    bool Learn(const std::string& end) {
        return LearnFormulas(session, end, [](const std::string&) { return true; });
    }
    Recordset Query(const std::string& sql) {
        Recordset rows;
        EXPECT_TRUE(QueryOrTell(session, sql, rows));
        return rows;
    }
    void Set(int xxqs, int dmgs) {
        ASSERT_TRUE(ExecuteOrTell(session, "update vqs set xxqs=" + std::to_string(xxqs) +
                                               ",dmgs=" + std::to_string(dmgs) + " where itype=0"));
    }

    TestDatabase database = TestDatabase::Delivered();
    Session& session = database.session();
};

TEST_F(Learning, StoresWhatReachesTheThresholdInGeneratedOrder) {
    Set(5, 1);
    ASSERT_TRUE(Learn("2020050"));
    Recordset rows = Query("select gs,rate from trate");
    ASSERT_GT(rows.recordcount(), 0);
    int last = -1;
    for (; !rows.eof(); rows.MoveNext()) {
        EXPECT_GT(rows.Int("gs"), last);
        EXPECT_NE(rows.Text("gs"), "22");
        EXPECT_GE(rows.Number("rate"), 40);  // the multiple of 20 next above the threshold of 30
        EXPECT_EQ(static_cast<int>(rows.Number("rate")) % 20, 0);
        last = static_cast<int>(rows.Int("gs"));
    }
}

TEST_F(Learning, EndsAtTheChosenIssue) {
    Set(30, 3);
    ASSERT_TRUE(Learn("2020050"));
    const std::string before = Query("select sum(rate) from trate").Text(0);
    ASSERT_TRUE(ExecuteOrTell(session, "update cphm set a1=1,a2=2,a3=3 where kjqh>2020050"));
    ASSERT_TRUE(Learn("2020050"));
    EXPECT_EQ(Query("select sum(rate) from trate").Text(0), before);
}

TEST_F(Learning, RefusesAHistoryThatIsTooShort) {
    Set(5, 1);
    EXPECT_FALSE(Learn("2003009"));
    EXPECT_THAT(database.host().Texts(), ElementsAre("数据不足，请重新学习！"));
    EXPECT_TRUE(Learn("2003010"));
}

TEST_F(Learning, RecordsTheBestThreeAndPrunesTheLog) {
    for (int i = 0; i < 60; ++i) {
        ASSERT_TRUE(ExecuteOrTell(session, "insert into xxjl(rdate,rqs) values('old',1)"));
    }
    ASSERT_TRUE(ExecuteOrTell(session, "insert into trate(gs,rate) values('1',50)"));
    ASSERT_TRUE(ExecuteOrTell(session, "insert into trate(gs,rate) values('2',60)"));
    EXPECT_FALSE(RecordLearning(session));
    EXPECT_THAT(database.host().Texts(), ElementsAre("数据不足，请重新学习！"));

    ASSERT_TRUE(ExecuteOrTell(session, "insert into trate(gs,rate) values('3',60)"));
    ASSERT_TRUE(ExecuteOrTell(session, "insert into trate(gs,rate) values('4',33.33)"));
    ASSERT_TRUE(RecordLearning(session));
    Recordset rows = Query("select top 1 * from xxjl order by id desc");
    EXPECT_EQ(rows.Text("r1gs") + ";" + rows.Text("r2gs") + ";" + rows.Text("r3gs"), "2;3;1");
    EXPECT_EQ(rows.Number("r3mz"), 50);
    EXPECT_EQ(rows.Text("rdate").size(), 19U);
    EXPECT_EQ(Query("select count(*) from xxjl").Int(0), 51);
}

}  // namespace
}  // namespace ssq
