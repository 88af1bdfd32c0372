#include "kill/KillLearning.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Public_var.h"
#include "app/numbers.h"
#include "kill/BMHZ.h"
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

TEST_F(KillLearningTest, StoresAndLogsTheBestPair) {
    Set("10", 1, 1, "10");
    ASSERT_EQ(Learn(), KillLearnOutcome::kLearned);
    EXPECT_EQ(released, 1);
    EXPECT_THAT(told, ElementsAre("准备数据中，首次运行较慢", "准备数据完成,开始学习！", "99.99"));

    // Once more on the stored cells, pair by pair.
    Recordset rows =
        database.Run("select top 10 * from bmhz where kjqh<=2020050 order by kjqh desc");
    std::vector<std::vector<std::int64_t>> cells;
    for (; !rows.eof(); rows.MoveNext()) {
        auto& draw = cells.emplace_back();
        for (int i = 0; i < kFormulaCount; ++i) draw.push_back(rows.Int(FormulaKey(FormulaAt(i))));
    }
    std::string best;
    int bestPasses = 0;
    for (std::size_t i = 0; i < kFormulaCount; ++i) {
        for (std::size_t j = i + 1; j < kFormulaCount; ++j) {
            int passes = 0;
            for (const auto& draw : cells) passes += draw[i] + draw[j] <= 1 ? 1 : 0;
            if (passes <= bestPasses) continue;
            bestPasses = passes;
            best = std::to_string(i) + "," + std::to_string(j);
        }
    }
    EXPECT_EQ(Text("select dsgs from tDs where dstype=1"), best);
    EXPECT_EQ(database.Run("select dsrate from tds").Number(0), bestPasses * 10);

    Recordset record = database.Run("select * from tSrecord");
    ASSERT_EQ(record.recordcount(), 1);
    EXPECT_EQ(record.Text("endDate"), "2020050");
    EXPECT_EQ(record.Int("tQs"), 10);
    EXPECT_EQ(record.Int("tDsGs"), 1);
    EXPECT_EQ(record.Int("tRcGs"), 1);
    EXPECT_EQ(record.Number("tRate"), bestPasses * 10);
    EXPECT_EQ(record.Text("tGsStr"), best);
    EXPECT_EQ(record.Int("tType"), 1);
    EXPECT_FALSE(record.IsNull("txxDate"));
}

TEST_F(KillLearningTest, TellsWhyItEnded) {
    Set("10", 0, 0, "40");
    ASSERT_EQ(Learn(), KillLearnOutcome::kLearned);
    const std::string stored = Text("select dsgs from tds");
    const std::string rows = Text("select count(*) from bmhz where kjqh<=2020050");

    struct Case {
        const char* what;
        std::function<void()> prepare;
        KillLearnOutcome outcome;
        const char* message;
        int released;
    };
    using enum KillLearnOutcome;
    const Case cases[] = {
        {"no settings", [&] { database.Run("delete from vqs where itype=1"); }, kFailed,
         "读取参数出错！", 1},
        {"size out of range", [&] { Set("10", 4, 0, "40"); }, kFailed, "参数错误！", 1},
        {"one draw too few", [&] { Set(rows + "+1", 0, 0, "40"); }, kFailed, "数据不足！", 0},
        {"all draws", [&] { Set(rows, 3, 4, "99.99"); }, kNothingFound,
         "该学习条件无数据,请降低概率后重新学习！", 1},
        {"rate not reached", [&] { Set("100", 0, 0, "100"); }, kNothingFound,
         "该学习条件无数据,请降低概率后重新学习！", 1},
        {"no draws at all", [&] { Set("0", 1, 0, "10"); }, kNothingFound,
         "该学习条件无数据,请降低概率后重新学习！", 1},
    };
    for (const Case& c : cases) {
        c.prepare();
        database.host().boxes.clear();
        EXPECT_EQ(Learn(), c.outcome) << c.what;
        EXPECT_THAT(database.host().Texts(), ElementsAre(c.message)) << c.what;
        EXPECT_EQ(released, c.released) << c.what;
        EXPECT_EQ(Text("select dsgs from tds"), stored) << c.what;
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

TEST_F(KillLearningTest, RestoresARecord) {
    ResultGrid grid;
    EXPECT_FALSE(ReadKillRecords(session, grid));
    EXPECT_FALSE(RestoreKillRecord(session, "1"));
    EXPECT_THAT(database.host().Texts(), ElementsAre("还没有学习记录！", "无数据！"));

    Set("9", 0, 0, "40");
    for (int i = 0; i < 251; ++i) {
        AddKillRecord(session, {"2020050", "8", i == 250 ? "7" : "2", "1", "87.5", "3,17,99", "1"});
    }
    AddKillRecord(session, {"2020050", "8", "2", "1", "87.5", "3,17,99", "2"});
    ASSERT_TRUE(ReadKillRecords(session, grid));
    EXPECT_EQ(grid.rows(), 251);
    EXPECT_EQ(grid.cell(0, 6), "杀对概率");
    EXPECT_EQ(grid.cell(1, 3), "9999");
    EXPECT_EQ(grid.cell(2, 3), "18");
    EXPECT_EQ(grid.cell(2, 6), "87.5");
    EXPECT_GT(grid.CellVal(1, 0), grid.CellVal(2, 0));

    const std::string id = grid.cell(2, 0);
    ASSERT_TRUE(RestoreKillRecord(session, id));
    EXPECT_EQ(Text("select count(*) from tds"), "0");
    database.Run("insert into tds(dsgs,dsrate,dstype) values('5',40,1)");
    ASSERT_TRUE(RestoreKillRecord(session, id));
    EXPECT_EQ(Text("select dsgs from tds"), "3,17,99");
    const auto settings = ReadKillSettings(session);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->xxqs, 8);
    EXPECT_EQ(settings->dmgs, 2);
    EXPECT_EQ(settings->rc, 1);
    EXPECT_EQ(settings->setRate, 87.5);
}

TEST_F(KillLearningTest, ChecksTheSettings) {
    database.Run("delete from vqs where itype=1");
    const auto save = [&](const char* xxqs, const char* rate) {
        return SaveKillSettings(session, xxqs, rate, 2, 3);
    };
    EXPECT_FALSE(ReadKillSettings(session));
    EXPECT_FALSE(save("x", "50"));
    EXPECT_FALSE(save("", "50"));
    EXPECT_FALSE(save("5", "5%"));
    EXPECT_FALSE(save("5", "9.9"));
    EXPECT_FALSE(save("5", "101"));
    constexpr const char* kRange = "杀对概率不能大于100%或小于10%！";
    EXPECT_THAT(database.host().Texts(), ElementsAre("学习期数只能为数字！", "学习期数只能为数字！",
                                                     "杀对概率只能为数字！", kRange, kRange));
    EXPECT_FALSE(ReadKillSettings(session));

    database.host().boxes.clear();
    EXPECT_TRUE(save(" 7.9 ", "10"));
    EXPECT_TRUE(save("7", "100.5"));
    EXPECT_THAT(database.host().Texts(), IsEmpty());
    EXPECT_EQ(Text("select count(*) from vqs where itype=1 and xxqs=7 and setRate=100"), "1");
}

TEST(KillProposals, FollowTheSizeAndTheStoredValues) {
    struct Case {
        int dmgs;
        KillSettings opened;
        KillProposal proposal;
    };
    const Case cases[] = {
        {0, {10, 1, 1, 80}, {2, 0, false, "40"}},      {1, {10, 0, 1, 80}, {3, 2, true, "90"}},
        {2, {10, 0, 1, 80}, {4, 3, true, "90"}},       {3, {10, 0, 1, 80}, {5, 4, true, "90"}},
        {0, {10, 0, 1, 83.33}, {2, 0, true, "83.33"}}, {0, {10, 0, 0, 0}, {2, 0, false, "40"}},
        {1, {10, 1, 1, 80}, {3, 1, true, "80"}},       {3, {10, 3, 2, 0}, {5, 2, true, "90"}},
        {2, {10, 2, 0, 75}, {4, 3, false, "75"}},
    };
    for (const Case& c : cases) {
        const KillProposal p = ProposeKillSettings(c.dmgs, c.opened);
        EXPECT_EQ(p.rcItems, c.proposal.rcItems) << c.dmgs;
        EXPECT_EQ(p.rcSelected, c.proposal.rcSelected) << c.dmgs;
        EXPECT_EQ(p.tolerant, c.proposal.tolerant) << c.dmgs;
        EXPECT_EQ(p.rateText, c.proposal.rateText) << c.dmgs;
    }
}

}  // namespace
}  // namespace ssq
