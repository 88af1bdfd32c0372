#include "kill/KillLearning.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <tuple>
#include <utility>

#include "base/numbers.h"
#include "draws/Draw.h"
#include "kill/KillRecords.h"
#include "kill/KillSettings.h"
#include "support/TestDatabase.h"
#include "ui/Run.h"

namespace ssq {
namespace {

using testing::ElementsAre;

class KillLearningTest : public testing::Test {
  protected:
    struct Watcher : RunWatcher {
        void ShowProgress(const std::string& text) override { last = text; }
        bool IsWanted() const override { return true; }
        std::string last;
    };

    // What became of the search, and of its best set.
    std::pair<KillLearnOutcome, KillStoreOutcome> Learn() {
        ssq::Run run(database.host(), &watcher);
        const KillLearnResult result = KillLearn(session, "2020050", run);
        run.ShowLast();
        if (result.outcome != KillLearnOutcome::kSearched) return {result.outcome, {}};
        return {result.outcome, StoreKillSet(session, "2020050", result)};
    }
    void Set(const std::string& xxqs, int dmgs, int rc, const std::string& rate) {
        database.Run("delete from vqs where itype=1");
        database.Run("insert into vqs(xxqs,dmgs,rc,setRate,itype) values(" + xxqs + "," +
                     std::to_string(dmgs) + "," + std::to_string(rc) + "," + rate + ",1)");
    }
    std::string Text(const std::string& sql) { return database.Run(sql).Text(0); }

    TestDatabase database = TestDatabase::Delivered();
    Session& session = database.session();
    Watcher watcher;
};

constexpr std::pair kLearned{KillLearnOutcome::kSearched, KillStoreOutcome::kStored};
constexpr std::pair kNothingFound{KillLearnOutcome::kSearched, KillStoreOutcome::kNothingFound};

TEST_F(KillLearningTest, StoresAndLogsTheBestFormula) {
    Set("10", 1, 1, "10");
    ASSERT_EQ(Learn(), kLearned);
    EXPECT_EQ(watcher.last, "99.99");  // the share before the last of the pairs

    // Once more from the draws, without the table of hit counts.
    std::vector<RedSet> before;
    const auto draws = ReadDrawsUpTo(session, "2020050", 20);
    for (const Draw& draw : draws.value()) before.push_back(draw.set);
    const auto [finished, formulas, found] =
        FindBestKillSet(HitsOf(before, 10), {2, 1, 10}, [](std::int64_t) { return true; });
    const std::string best = NumberListText(formulas);
    const std::string rate = NumberText(found);
    EXPECT_EQ(Text("select dsgs || ' ' || dsrate from tDs where dstype=1"), best + " " + rate);
    EXPECT_EQ(Text("select endDate || ' ' || tQs || tDsGs || tRcGs || ' ' || tRate || ' ' || "
                   "tGsStr || ' ' || tType from tSrecord where txxDate is not null"),
              "2020050 1011 " + rate + " " + best + " 1");
}

TEST_F(KillLearningTest, TellsWhyItEnded) {
    Set("10", 0, 0, "40");
    ASSERT_EQ(Learn(), kLearned);
    const std::string stored = Text("select dsgs from tds");
    const std::string rows = Text("select count(*) from bmhz where kjqh<=2020050");

    struct Case {
        std::function<void()> prepare;
        std::pair<KillLearnOutcome, KillStoreOutcome> end;
        const char* message;
    };
    constexpr std::pair kRefused{KillLearnOutcome::kRefused, KillStoreOutcome{}};
    constexpr std::pair kTooLittle{KillLearnOutcome::kTooLittle, KillStoreOutcome{}};
    constexpr const char* kNothing = "该学习条件无数据,请降低概率后重新学习！";
    const Case cases[] = {
        {[&] { database.Run("delete from vqs where itype=1"); }, kRefused, "读取参数出错！"},
        {[&] { Set("10", 2147483647, 0, "40"); }, kRefused, "参数错误！"},
        {[&] { Set(rows + "+1", 0, 0, "40"); }, kTooLittle, "数据不足！"},
        {[&] { Set(rows, 3, 4, "99.99"); }, kNothingFound, kNothing},
        {[&] { Set("-1", 1, 0, "10"); }, kNothingFound, kNothing},
    };
    for (const Case& c : cases) {
        c.prepare();
        database.host().boxes.clear();
        EXPECT_EQ(Learn(), c.end) << c.message;
        EXPECT_THAT(database.host().Texts(), ElementsAre(c.message));
        EXPECT_EQ(Text("select dsgs from tds"), stored) << c.message;
    }

    // What could not be stored is not logged.
    Set("10", 0, 0, "10");
    database.Run("create trigger t before insert on tDs begin select raise(abort,'full'); end");
    EXPECT_EQ(Learn().second, KillStoreOutcome::kFailed);
    EXPECT_EQ(Text("select dsgs from tds"), stored);
    EXPECT_EQ(Text("select count(*) from tSrecord"), "1");

    database.host().boxes.clear();
    database.Run("drop table bmhz");
    database.Run("delete from cphm where kjqh<2020040");
    EXPECT_EQ(Learn(), kRefused);
    EXPECT_THAT(database.host().Texts(), ElementsAre("数据不足！", "汇总数据出错！"));
}

TEST_F(KillLearningTest, ChecksTheSettings) {
    database.Run("delete from vqs where itype=1");
    const auto save = [&](const char* xxqs, const char* rate) {
        return SaveKillSettings(session, {xxqs, rate, 2, false, 3});
    };
    EXPECT_FALSE(ReadKillSettings(session));
    const std::tuple<const char*, const char*, const char*> refused[] = {
        {"x", "50", "学习期数只能为数字！"},
        {"5", "5%", "杀对概率只能为数字！"},
        {"5", "9.9", "杀对概率不能大于100%或小于10%！"},
        {"5", "101", "杀对概率不能大于100%或小于10%！"},
        {"-5", "50", "学习期数填写错误！"},
    };
    for (const auto& [xxqs, rate, message] : refused) {
        EXPECT_FALSE(save(xxqs, rate));
        EXPECT_EQ(database.host().Texts().back(), message);
    }
    EXPECT_FALSE(ReadKillSettings(session));

    EXPECT_TRUE(save(" 7.9 ", "10"));
    EXPECT_TRUE(save("7", "100.5"));
    // The tolerance chosen counts only while it is ticked.
    EXPECT_EQ(Text("select xxqs || ' ' || setRate || ' ' || rc from vqs where itype=1"), "7 100 0");
    EXPECT_TRUE(SaveKillSettings(session, {"7", "50", 2, true, 3}));
    EXPECT_EQ(Text("select rc from vqs where itype=1"), "3");
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
