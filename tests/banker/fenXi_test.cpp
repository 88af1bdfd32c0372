#include "banker/fenXi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "banker/HighestRates.h"
#include "banker/LearningRecords.h"
#include "banker/PositionFormulas.h"
#include "base/combinations.h"
#include "support/TestDatabase.h"
#include "ui/Run.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Texts(const std::vector<ScoredFormula>& formulas) {
    std::vector<std::string> texts;
    for (const auto& [positions, rate] : formulas) {
        texts.push_back(FormulaText(positions) + ": " + std::to_string(static_cast<int>(rate)));
    }
    return texts;
}

// Worked out by hand. Round 0 aims at the first draw, round 1 at the second; 100 is one hit round
// over a divisor of 1, so that position 6 (2 in round 0, 1 in round 1) has 200.
TEST(PositionFormulas, CountOneRoundMoreThanTheirDivisor) {
    const std::vector<DrawBalls> draws = {{1, 2, 3, 4, 5, 6},       {1, 7, 8, 9, 10, 11},
                                          {2, 12, 13, 14, 15, 16},  {1, 17, 18, 19, 20, 21},
                                          {22, 23, 24, 25, 26, 27}, {1, 28, 29, 30, 31, 32}};
    EXPECT_THAT(Texts(*GoodFormulas(draws, {1, 1}, {})),
                ElementsAre("0: 100", "6: 200", "12: 100", "18: 100"));
    EXPECT_THAT(Texts(BestFormulas(draws, {1, 1}, 3)), ElementsAre("6: 200", "0: 100", "12: 100"));
    // Either position is enough, and both at once are one hit round.
    EXPECT_THAT(Texts(BestFormulas(draws, {1, 2}, 2)), ElementsAre("0,6: 200", "0,18: 200"));
    EXPECT_THAT(BestFormulas(draws, {2, 1}, 3), IsEmpty());  // a draw short
    EXPECT_THAT(BallsAt({0, 7, 23}, draws), ElementsAre(1, 7, 21));
}

// Views at the borders of what is scored in one go, windows at those of a word.
TEST(PositionFormulas, AreScoredForManyDrawsAsForEach) {
    std::mt19937 random(7);
    std::vector<DrawBalls> draws(200);
    for (DrawBalls& draw : draws) {
        draw = CombinationAt(static_cast<std::int32_t>(random() % kCombinationCount) + 1);
    }
    constexpr std::size_t kViews = 90;
    for (const BankerSettings& settings :
         {BankerSettings{5, 1}, BankerSettings{63, 2}, BankerSettings{64, 3},
          BankerSettings{100, 1}, BankerSettings{100, 3}, BankerSettings{20, 4},
          BankerSettings{30, 5}}) {
        const auto all = HighestRates(draws, kViews, settings, 4);
        ASSERT_EQ(all.size(), kViews);
        for (const std::size_t view : {0, 1, 62, 63, 64, 65, 89}) {
            const auto before = std::span(draws).subspan(view);
            std::vector<ScoredFormula> good = all[view];
            std::erase_if(good, [&](const ScoredFormula& formula) {
                return formula.rate < GoodRate(settings.dmgs);
            });
            EXPECT_EQ(Texts(good), Texts(BestOf(*GoodFormulas(before, settings, {}), 4)))
                << settings.xxqs << " " << settings.dmgs << " " << view;
            EXPECT_EQ(Texts(good), Texts(BestFormulas(before, settings, 4)));
        }
    }
}

class Learning : public testing::Test {
  protected:
    bool Learn(const std::string& end) {
        ssq::Run run(database.host());
        return LearnFormulas(session, end, run);
    }
    std::string Text(const std::string& sql) { return database.Run(sql).Text(0); }
    void Set(int xxqs, int dmgs) {
        database.Run("update vqs set xxqs=" + std::to_string(xxqs) +
                     ",dmgs=" + std::to_string(dmgs) + " where itype=0");
    }
    std::string State() {
        return Text("select count(*) || ' ' || sum(rate) from trate") + " " +
               Text("select count(*) from xxjl") + " " +
               Text("select xxqs || ' ' || dmgs from vqs where itype=0");
    }

    TestDatabase database = TestDatabase::Delivered();
    Session& session = database.session();
};

TEST_F(Learning, StoresTheFormulasInOrderAndLogsTheBestOfTheDrawsLearnedOn) {
    for (int i = 0; i < 60; ++i) database.Run("insert into xxjl(rdate,rqs) values('old',1)");
    Set(10, 3);
    database.host().onPump = [&] { Set(77, 2); };  // in the middle of the run
    ASSERT_TRUE(Learn("2020050"));
    ASSERT_GT(database.host().pumps, 0);
    EXPECT_EQ(Text("select min(rate)>=50 and count(*)>3 from trate"), "1");
    // Dictionary order of the positions, in the order of the rows.
    std::vector<int> last;
    for (Recordset rows = database.Run("select gs from trate"); !rows.eof(); rows.MoveNext()) {
        const PositionFormula formula = ParseFormula(rows.Text(0)).value();
        EXPECT_LT(last, formula);
        EXPECT_THAT(formula, testing::Not(testing::Contains(22)));
        last = formula;
    }
    EXPECT_EQ(Text("select rqs || r1gs || r2gs || r3gs || r1mz || r2mz || r3mz from xxjl "
                   "where rdate<>'old' and length(rdate)=19"),
              "10" + Text("select group_concat(gs,'') || group_concat(rate,'') from (select "
                          "gs,rate from trate order by rate desc,rowid limit 3)"));
    EXPECT_EQ(Text("select count(*) from xxjl"), "51");

    // Draws behind the end issue take no part.
    database.host().onPump = nullptr;
    Set(10, 3);
    const std::string learned = Text("select sum(rate) from trate");
    database.Run("update cphm set a1=1,a2=2,a3=3 where kjqh>2020050");
    ASSERT_TRUE(Learn("2020050"));
    EXPECT_EQ(Text("select sum(rate) from trate"), learned);
}

TEST_F(Learning, EndsWithTheOldFormulasOrTheNewOnes) {
    Set(20, 3);
    ASSERT_TRUE(Learn("2020050"));
    Set(30, 5);
    const std::string before = State();
    struct Unwanted : RunWatcher {
        void ShowProgress(const std::string&) override {}
        bool IsWanted() const override { return false; }
    } unwanted;
    ssq::Run ended(database.host(), &unwanted);
    EXPECT_FALSE(LearnFormulas(session, "2020050", ended));
    EXPECT_FALSE(Learn("2020x50"));
    EXPECT_EQ(State(), before);
    database.Run("create trigger t before insert on xxjl begin select raise(abort,'full'); end");
    EXPECT_FALSE(Learn("2020050"));
    EXPECT_EQ(State(), before);
    EXPECT_THAT(database.host().Texts(), ElementsAre("期号填写错误！", "保存数据失败：full"));

    // Too few draws leave no formula behind, so that no recommendation uses those of other draws.
    database.Run("drop trigger t");
    database.host().boxes.clear();
    Set(5, 1);
    EXPECT_FALSE(Learn("2003009"));
    EXPECT_EQ(Text("select count(*) from trate"), "0");
    EXPECT_TRUE(Learn("2003010"));
    // Where nothing is drawn again no formula is good.
    database.Run("update cphm set a1=0,a2=0,a3=0,a4=0,a5=0,a6=0");
    EXPECT_TRUE(Learn("2020050"));
    EXPECT_THAT(database.host().Texts(), testing::Each("数据不足，请重新学习！"));
    EXPECT_EQ(database.host().boxes.size(), 2U);
}

TEST_F(Learning, RestoresAWholeRecordOrNothing) {
    Set(20, 4);
    database.Run(
        "insert into xxjl(rdate,rqs,r1gs,r2gs,r3gs,r1mz,r2mz,r3mz) values"
        "('t',7,'0,1','2,3','4,23',90.5,80,70),('t',8,'0,1','2,3','4',90,80,70),"
        "('t',9,'0,1','2,3','4,24',90,80,70),('t',9,'0,1','2,3','4,5',90,80,null)");
    const auto log = ReadLearningRecords(session);
    ASSERT_EQ(log->records.size(), 4U);
    EXPECT_EQ(log->grid.cell(4, 1), "7");  // of one second: the newest first
    const std::string before = State();
    for (int record = 0; record < 3; ++record) {
        EXPECT_FALSE(RestoreLearningRecord(session, log->records[std::size_t(record)]));
        EXPECT_EQ(State(), before);
    }
    EXPECT_TRUE(RestoreLearningRecord(session, log->records[3]));
    EXPECT_EQ(State(), "3 240.5 4 7 2");
    EXPECT_EQ(Text("select group_concat(gs,';') from trate"), "0,1;2,3;4,23");
}

TEST_F(Learning, KeepsTheWholePartOfTheSetting) {
    for (const auto& [text, stored] : {std::pair{"7.5", "7"}, {"1,0", "10"}, {" 5 ", "5"}}) {
        EXPECT_TRUE(SaveBankerSettings(session, text, 2));
        EXPECT_EQ(Text("select xxqs from vqs where itype=0"), stored);
    }
    EXPECT_THAT(LearningModeText(ReadBankerSettings(session)), testing::HasSubstr("期数是5期"));
    database.Run("drop table vqs");
    database.host().boxes.clear();
    EXPECT_THAT(LearningModeText(ReadBankerSettings(session)), testing::HasSubstr("期数是期"));
    EXPECT_EQ(database.host().boxes.size(), 1U);
}

}  // namespace
}  // namespace ssq
