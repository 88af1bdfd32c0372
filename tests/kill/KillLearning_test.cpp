#include "kill/KillLearning.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <tuple>
#include <utility>

#include "formulas/BMHZ.h"
#include "kill/KillRecords.h"
#include "kill/KillSettings.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KillLearningTest : public testing::Test {
  protected:
    KillLearnOutcome Learn(const std::string& end = "2020050") {
        released = 0;
        told.clear();
        const KillLearnView view{[this](const std::string& text) { told.push_back(text); },
                                 [](const std::string&) {}, [this] { ++released; }};
        return KillLearn(session, end, view).outcome;
    }
    void Set(const std::string& xxqs, int dmgs, int rc, const std::string& rate) {
        database.Run("delete from vqs where itype=1");
        database.Run("insert into vqs(xxqs,dmgs,rc,setRate,itype) values(" + xxqs + "," +
                     std::to_string(dmgs) + "," + std::to_string(rc) + "," + rate + ",1)");
    }
    std::string Text(const std::string& sql) { return database.Run(sql).Text(0); }

    TestDatabase database = TestDatabase::Delivered();
    Session& session = database.session();
    int released = 0;
    std::vector<std::string> told;
};

TEST_F(KillLearningTest, StoresAndLogsTheBestFormula) {
    Set("10", 0, 1, "10");
    ASSERT_EQ(Learn(), KillLearnOutcome::kLearned);
    EXPECT_EQ(released, 1);
    EXPECT_THAT(told, ElementsAre("准备数据中，首次运行较慢", "准备数据完成,开始学习！", "99.23"));

    // Once more in the store: the draws without a second hit, formula by formula.
    std::string best;
    std::int64_t most = 0;
    for (int i = 0; i < kFormulaCount; ++i) {
        const std::int64_t passes =
            database
                .Run("select count(*) from (select " + FormulaKey(FormulaAt(i)) +
                     " as hits from bmhz where kjqh between 2020041 and 2020050) where hits<2")
                .Int(0);
        if (passes > std::exchange(most, std::max(most, passes))) best = std::to_string(i);
    }
    const std::string rate = std::to_string(most * 10);
    EXPECT_EQ(Text("select dsgs || ' ' || dsrate from tDs where dstype=1"), best + " " + rate);
    EXPECT_EQ(Text("select endDate || ' ' || tQs || tDsGs || tRcGs || ' ' || tRate || ' ' || "
                   "tGsStr || ' ' || tType from tSrecord where txxDate is not null"),
              "2020050 1001 " + rate + " " + best + " 1");
}

TEST_F(KillLearningTest, TellsWhyItEnded) {
    Set("10", 0, 0, "40");
    ASSERT_EQ(Learn(), KillLearnOutcome::kLearned);
    const std::string stored = Text("select dsgs from tds");
    const std::string rows = Text("select count(*) from bmhz where kjqh<=2020050");

    struct Case {
        std::function<void()> prepare;
        KillLearnOutcome outcome;
        const char* message;
        int released;
    };
    using enum KillLearnOutcome;
    constexpr const char* kNothing = "该学习条件无数据,请降低概率后重新学习！";
    const Case cases[] = {
        {[&] { database.Run("delete from vqs where itype=1"); }, kFailed, "读取参数出错！", 1},
        {[&] { Set("10", 4, 0, "40"); }, kFailed, "参数错误！", 1},
        {[&] { Set(rows + "+1", 0, 0, "40"); }, kFailed, "数据不足！", 0},
        {[&] { Set(rows, 3, 4, "99.99"); }, kNothingFound, kNothing, 1},
        {[&] { Set("100", 0, 0, "100"); }, kNothingFound, kNothing, 1},
        {[&] { Set("0", 1, 0, "10"); }, kNothingFound, kNothing, 1},
    };
    for (const Case& c : cases) {
        c.prepare();
        database.host().boxes.clear();
        EXPECT_EQ(Learn(), c.outcome) << c.message;
        EXPECT_THAT(database.host().Texts(), ElementsAre(c.message));
        EXPECT_EQ(released, c.released) << c.message;
        EXPECT_EQ(Text("select dsgs from tds"), stored) << c.message;
    }

    database.host().boxes.clear();
    database.Run("drop table bmhz");
    database.Run("delete from cphm where kjqh<2020040");
    EXPECT_EQ(Learn(), kFailed);
    EXPECT_THAT(database.host().Texts(), ElementsAre("数据不足！", "汇总数据出错！"));
    EXPECT_EQ(released, 1);
}

TEST_F(KillLearningTest, LogsNothingThatItCouldNotStore) {
    Set("10", 0, 0, "10");
    database.Run("drop table tDs");
    EXPECT_EQ(Learn(), KillLearnOutcome::kFailed);
    EXPECT_EQ(database.host().Texts().size(), 1U);
    EXPECT_EQ(Text("select count(*) from tSrecord"), "0");
}

TEST_F(KillLearningTest, ChecksTheSettings) {
    database.Run("delete from vqs where itype=1");
    const auto save = [&](const char* xxqs, const char* rate) {
        return SaveKillSettings(session, xxqs, rate, 2, 3);
    };
    EXPECT_FALSE(ReadKillSettings(session));
    EXPECT_FALSE(save("x", "50"));
    EXPECT_FALSE(save("5", "5%"));
    EXPECT_FALSE(save("5", "9.9"));
    EXPECT_FALSE(save("5", "101"));
    EXPECT_THAT(database.host().Texts(),
                ElementsAre("学习期数只能为数字！", "杀对概率只能为数字！",
                            "杀对概率不能大于100%或小于10%！", "杀对概率不能大于100%或小于10%！"));
    EXPECT_FALSE(ReadKillSettings(session));

    database.host().boxes.clear();
    EXPECT_TRUE(save(" 7.9 ", "10"));
    EXPECT_TRUE(save("7", "100.5"));
    EXPECT_THAT(database.host().Texts(), IsEmpty());
    EXPECT_EQ(Text("select count(*) from vqs where itype=1 and xxqs=7 and setRate=100"), "1");
}

TEST(KillProposals, FollowTheSizeAndTheStoredValues) {
    // Size chosen, values read on opening, what is proposed.
    const std::tuple<int, KillSettings, KillProposal> cases[] = {
        {0, {10, 1, 1, 80}, {2, 0, false, "40"}},      {1, {10, 0, 1, 80}, {3, 2, true, "90"}},
        {2, {10, 0, 1, 80}, {4, 3, true, "90"}},       {3, {10, 0, 1, 80}, {5, 4, true, "90"}},
        {0, {10, 0, 1, 83.33}, {2, 0, true, "83.33"}}, {0, {10, 0, 0, 0}, {2, 0, false, "40"}},
        {1, {10, 1, 1, 80}, {3, 1, true, "80"}},       {3, {10, 3, 2, 0}, {5, 2, true, "90"}},
        {2, {10, 2, 0, 75}, {4, 3, false, "75"}},
    };
    const auto values = [](const KillProposal& p) {
        return std::tie(p.rcItems, p.rcSelected, p.tolerant, p.rateText);
    };
    for (const auto& [dmgs, opened, proposal] : cases) {
        EXPECT_EQ(values(ProposeKillSettings(dmgs, opened)), values(proposal)) << dmgs;
    }
}

}  // namespace
}  // namespace ssq
