#include "trial/BlindTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

#include "banker/Recommendation.h"
#include "banker/fenXi.h"
#include "base/combinations.h"
#include "base/numbers.h"
#include "base/text.h"
#include "bets/BetCheck.h"
#include "kill/KillLearning.h"
#include "kill/KillRecommend.h"
#include "stats/HeatRanking.h"
#include "support/TestDatabase.h"
#include "tools/FormulaFiles.h"
#include "trial/WalkForward.h"
#include "ui/Run.h"
#include "wrap/BlueWrap.h"
#include "wrap/RedWrap.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::vector<std::string> kFormulas{"a1+a2", "a3+7", "int(a7*2.5)"};
constexpr const char* kPlan = "红球 01-25\n和值 70~120\n重号 0~1";

// Every method, most of them in two ways.
const std::vector<TrialMethod> kMethods = {
    BankerSettings{5, 2},
    BankerSettings{70, 3},
    KillSettings{3, 1, 1, 60},
    KillSettings{10, 0, 0, 40},
    RedWrapTrial{},
    BlueWrapTrial{},
    SingleFormulaTrial{{"<=", 1}, 30},
    SingleFormulaTrial{{">=", 2}},
    HeatTrial{20, 5},
    HeatTrial{.numbers = 3, .coldest = true},
    OwnFormulasTrial{kFormulas},
    OwnFormulasTrial{kFormulas, FormulaTarget::kBlue, 1, 1},
    OwnFormulasTrial{kFormulas, FormulaTarget::kTail, 1, 2},
    PlanTrial{kPlan},
};

std::vector<Draw> RandomDraws(unsigned seed, int count) {
    std::mt19937 random(seed);
    std::vector<Draw> draws(static_cast<std::size_t>(count));
    int issue = 2003001;
    for (Draw& draw : draws) {
        const SixReds reds =
            CombinationAt(static_cast<std::int32_t>(random() % kCombinationCount) + 1);
        std::ranges::copy(reds, draw.balls.begin());
        for (const int red : reds) draw.set.Add(red);
        draw.reds = draw.set.ToList();
        draw.blue = static_cast<int>(random() % kBlues) + 1;
        draw.issue = std::to_string(issue++);
    }
    return draws;
}

class BlindTest : public testing::Test {
  protected:
    TrialResult Walk(const std::vector<Draw>& draws, const TrialMethod& method, int count) {
        TrialProgress progress{run, 0};
        return WalkForward(History(draws), {method, count}, progress).value();
    }
    TrialResult OnFile(const TrialMethod& method, int count = 3) {
        return RunBlindTest(session, {method, count}, run).value();
    }
    std::string Text(const std::string& sql) { return database.Run(sql).Text(0); }

    TestDatabase database = TestDatabase::Delivered();
    Session& session = database.session();
    ssq::Run run{database.host()};
    const std::string newest = session.LatestIssue;
};

// Each prediction is compared with that of a history which ends before the draw predicted. The run
// is longer than a method looks ahead, and a shorter one puts each draw at another place of it.
TEST_F(BlindTest, NoPredictionKnowsTheDrawPredictedOrThoseBehindIt) {
    constexpr std::size_t kDraws = 230;
    constexpr std::size_t kJudged = 100;
    constexpr std::size_t kFewer = 77;
    const std::vector<Draw> draws = RandomDraws(1, kDraws);
    for (const TrialMethod& method : kMethods) {
        const auto whole = Walk(draws, method, kJudged).rows;
        const auto fewer = Walk(draws, method, kFewer).rows;
        int told = 0;
        for (std::size_t row = 0; row < kJudged; ++row) {
            const auto end = draws.begin() + static_cast<long>(kDraws - kJudged + row);
            const TrialRow cut = Walk({draws.begin(), end}, method, 1).next;
            EXPECT_EQ(cut.picks, whole[row].picks) << method.index() << " " << row;
            EXPECT_EQ(cut.reason, whole[row].reason);
            if (row >= kJudged - kFewer) {
                EXPECT_EQ(fewer[row - (kJudged - kFewer)].picks, whole[row].picks) << row;
            }
            told += cut.picks.empty() ? 0 : 1;
        }
        EXPECT_GT(told, 0) << method.index();
    }
}

TEST_F(BlindTest, IsFairOverManyHistories) {
    constexpr int kHistories = 60;
    for (const TrialMethod& method : kMethods) {
        // A plan that looks back takes a count over all combinations for each draw.
        const int judged = std::holds_alternative<PlanTrial>(method) ? 15 : 60;
        std::vector<double> sums;
        std::vector<double> squares;
        for (int history = 0; history < kHistories; ++history) {
            const TrialResult result =
                Walk(RandomDraws(static_cast<unsigned>(100 + history), 160), method, judged);
            sums.resize(result.sums.size());
            squares.resize(result.sums.size());
            for (std::size_t track = 0; track < sums.size(); ++track) {
                const Tally& tally = result.sums[track].tally;
                if (tally.draws == 0) continue;
                const double z = (tally.score - tally.mean) / std::sqrt(tally.variance);
                sums[track] += z;
                squares[track] += z * z;
            }
        }
        for (std::size_t track = 0; track < sums.size(); ++track) {
            // Three standard errors of 60: 3 / sqrt(60) and 3 / sqrt(2 * 60).
            EXPECT_NEAR(sums[track] / kHistories, 0, 0.39) << method.index() << " " << track;
            EXPECT_NEAR(std::sqrt(squares[track] / kHistories), 1, 0.28)
                << method.index() << " " << track;
        }
    }
}

TEST_F(BlindTest, LeavesNoTrace) {
    const std::string state =
        "select total_changes() || ' ' || schema_version from "
        "pragma_schema_version";
    const std::string before = Text(state);
    for (const TrialMethod& method : kMethods) OnFile(method, 20);
    EXPECT_EQ(Text(state), before);
    EXPECT_THAT(database.host().boxes, IsEmpty());
}

// The cells of a row behind its two fixed ones.
std::string RowText(const ResultGrid& grid, int row, int first, int count) {
    std::vector<std::string> cells;
    for (int col = first; col < first + count; ++col) cells.push_back(grid.cell(row, col));
    return Join(cells, ",");
}

TEST_F(BlindTest, PredictsTheNextIssueAsThePanelsDo) {
    const std::string start = Text("select kjqh from cphm order by kjqh desc limit 1 offset 40");
    const PeriodRange range{start, newest};

    database.Run("update vqs set xxqs=30,dmgs=3 where itype=0");
    ASSERT_TRUE(LearnFormulas(session, newest, run));
    const auto bankers = BuildBankerRecommendation(session, range, 3);
    ASSERT_TRUE(bankers) << database.host().Texts().back();
    const int next = bankers->grid.rows() - 2;
    const TrialResult learned = OnFile(BankerSettings{30, 3}, 41);
    EXPECT_THAT(learned.next.picks,
                ElementsAre(RowText(bankers->grid, next, 2, 3), RowText(bankers->grid, next, 6, 3),
                            RowText(bankers->grid, next, 10, 3)));
    EXPECT_THAT(bankers->grid.cell(next, 1), HasSubstr(learned.next.issue + "期"));
    EXPECT_EQ(NumberText(*learned.next.marks[1].stated),
              Text("select r2mz from xxjl order by id desc limit 1"));

    database.Run("delete from vqs where itype=1");
    database.Run("insert into vqs(xxqs,dmgs,rc,setRate,itype) values(10,2,3,90,1)");
    const KillLearnResult kills = KillLearn(session, newest, run);
    ASSERT_EQ(StoreKillSet(session, newest, kills), KillStoreOutcome::kStored);
    const ResultGrid killGrid = KillRecommend(session, range)->grid;
    const TrialResult killed = OnFile(KillSettings{10, 2, 3, 90});
    EXPECT_EQ(killed.next.picks[0], RowText(killGrid, killGrid.rows() - 2, 2, 18));
    EXPECT_EQ(*killed.next.marks[0].stated, kills.best.rate);

    const ResultGrid reds = BuildRedWrap(session, range, run)->grid;
    EXPECT_EQ(OnFile(RedWrapTrial{}).next.picks[0], RowText(reds, reds.rows() - 2, 2, 18));
    const ResultGrid blues = BuildBlueWrap(session, range)->grid;
    std::string blue = RowText(blues, blues.rows() - 1, 2, 9);
    blue.erase(blue.find_last_not_of(',') + 1);
    EXPECT_EQ(OnFile(BlueWrapTrial{}).next.picks[0], blue);

    for (const char* window : {"30", kWholeHistory}) {
        const ResultGrid heat = BuildHeatRanking(session, {range, window}, run).report->grid;
        const int draws = static_cast<int>(Val(window));
        EXPECT_EQ(OnFile(HeatTrial{draws, 8}).next.picks[0], RowText(heat, heat.rows() - 2, 2, 8));
        EXPECT_EQ(OnFile(HeatTrial{draws, 8, true}).next.picks[0],
                  RowText(heat, heat.rows() - 2, 2 + kReds - 8, 8));
    }

    const auto report = FormulaStatistics(session, {"<=", 1}, newest, run);
    const auto best = std::ranges::max_element(
        report->rows, {}, [](const FormulaRow& row) { return row.stats.count; });
    const TrialResult single = OnFile(SingleFormulaTrial{{"<=", 1}});
    EXPECT_THAT(single.next.picks, ElementsAre(FormulaKey(best->formula), best->numbers));
    EXPECT_EQ(NumberText(*single.next.marks[0].stated),
              report->grid.cell(static_cast<int>(best - report->rows.begin()) + 1, kRateColumn));

    ASSERT_TRUE(SaveFormulaList(session, kFormulas));
    const auto own = TestFormulas(session, {range, "1", "6", FormulaTarget::kRed}, run);
    const TrialResult formulas = OnFile(OwnFormulasTrial{kFormulas}, 40);
    EXPECT_THAT(own->lines, HasSubstr(":   " + formulas.next.picks[0] + "\r\n"));
    EXPECT_THAT(own->lines, HasSubstr("共正确:" + NumberText(formulas.sums[0].tally.score) + "期"));

    std::vector<RedSet> history;
    const auto draws = ReadAllDraws(session);
    for (const Draw& draw : draws.value()) history.push_back(draw.set);
    const auto goOn = [](double, double) { return true; };
    EXPECT_EQ(OnFile(PlanTrial{kPlan}, 50).sums[0].tally.score,
              CheckHistory(ReadBetPlan(kPlan).plan, history, 50, goOn)->passed);
}

// Worked out by hand: a value that stands twice weighs two, what no ball has weighs nothing.
TEST_F(BlindTest, TakesTheChanceOfTheUsersFormulasFromTheirBalls) {
    const double all = kCombinationCount;
    struct Case {
        std::vector<std::string> formulas;
        FormulaTarget target;
        double low, high, chance;
        std::string picks;
    };
    const std::vector<Case> cases = {
        {{"0", "10", "5", "77"}, FormulaTarget::kRed, 2, 2, Choose(31, 5) / all, "10,10,05,77"},
        {{"0", "10"}, FormulaTarget::kRed, 1, 1, 0, "10,10"},
        {{"0", "3"}, FormulaTarget::kTail, 1, 6, 1 - Choose(29, 6) / all, "10,03"},
        {{"0"}, FormulaTarget::kTail, 0, 0, Choose(30, 6) / all, "00"},
        {{"20", "7"}, FormulaTarget::kBlue, 1, 1, 1 / 16.0, "20,07"},
    };
    const std::vector<Draw> draws = RandomDraws(5, 2);
    for (const Case& each : cases) {
        const TrialResult result =
            Walk(draws, OwnFormulasTrial{each.formulas, each.target, each.low, each.high}, 2);
        EXPECT_THAT(result.next.picks, ElementsAre(each.picks));
        EXPECT_NEAR(result.next.marks[0].odds.mean, each.chance, 1e-12) << each.picks;
        EXPECT_EQ(result.rows[0].reason, NotJudged::kTooFewDraws);
    }
    EXPECT_EQ(Walk(draws, OwnFormulasTrial{}, 2).next.reason, NotJudged::kNoNumbers);
    EXPECT_EQ(Walk(draws, OwnFormulasTrial{{"a1+"}}, 2).next.reason, NotJudged::kBadFormula);
}

TEST_F(BlindTest, JudgesFromTheFirstDrawThatHasEnoughBeforeIt) {
    const std::vector<Draw> draws = RandomDraws(3, 60);
    const std::vector<std::pair<TrialMethod, int>> cases = {
        {BankerSettings{5, 5}, 10},
        {KillSettings{3, 0, 6, 10}, 14},
        {RedWrapTrial{}, 16},
        {BlueWrapTrial{}, 4},
        {SingleFormulaTrial{{"<", 6}, 20}, 31},
        {SingleFormulaTrial{{"<", 6}}, 12},
        {HeatTrial{7, 1}, 7},
        {HeatTrial{}, 2},
        {OwnFormulasTrial{kFormulas}, 1},
        {PlanTrial{"和值 80~120"}, 0},
    };
    for (const auto& [method, needed] : cases) {
        const TrialResult result = Walk(draws, method, kAllDraws);
        ASSERT_EQ(result.rows.size(), draws.size());
        for (int row = 0; row <= needed; ++row) {
            EXPECT_EQ(result.rows[static_cast<std::size_t>(row)].reason == NotJudged::kTooFewDraws,
                      row < needed)
                << method.index() << " " << row;
        }
    }
    // The heat of all leaves out the oldest: of two draws it counts the newest.
    EXPECT_EQ(Walk({draws.begin(), draws.begin() + 2}, HeatTrial{}, 1).next.picks[0],
              draws[1].reds);
}

TEST_F(BlindTest, ShowsWhatItFound) {
    const TrialResult result = OnFile(BankerSettings{30, 3}, 100);
    const ResultGrid& grid = result.grid;
    ASSERT_EQ(grid.rows(), 2 + 100 + 1 + 4);
    const ResultGrid single = OnFile(SingleFormulaTrial{{"<=", 1}, 30}, 20).grid;
    for (int row = 2; row < 22; ++row) {
        EXPECT_FALSE(single.style(row, 2).back);  // the name of the formula
        EXPECT_EQ(single.style(row, 3).back.has_value(), single.cell(row, 4) == "√");
    }
    EXPECT_EQ(RowText(grid, 0, 2, 4), "第一组,第一组,第一组,第二组");
    EXPECT_EQ(RowText(grid, 1, 0, 5), "期号,开奖号码,胆码,命中,机会%");
    int hits = 0;
    for (int row = 2; row < 102; ++row) {
        const bool isHit = grid.cell(row, 3) == "√";
        EXPECT_EQ(grid.style(row, 2).back.has_value(), isHit);
        hits += isHit ? 1 : 0;
    }
    EXPECT_EQ(hits, result.sums[0].tally.score);
    EXPECT_EQ(grid.cell(103, 2), std::to_string(hits));
    EXPECT_THAT(result.lines[0],
                testing::StartsWith("第一组：中 " + std::to_string(hits) + " 期，"));
    const auto course = CourseOf(result, 0);
    EXPECT_EQ(course.size(), 100U);
    EXPECT_EQ(course.back().tally.mean, result.sums[0].tally.mean);
    // Learning on random numbers shows as much.
    EXPECT_NEAR(result.luck->best, *result.sums[0].stated, 2);
    EXPECT_EQ(result.caption, "盲测结果  最近100期，每期只用它之前的开奖来学习");

    const TrialResult early = OnFile(RedWrapTrial{}, kAllDraws);
    EXPECT_EQ(early.lines.back(), "另有 16 期没有计入：期数不够 16 期。");
    EXPECT_EQ(early.grid.cell(2, 2), "期数不够");
    // What nothing is learned on has no luck, however many draws are asked for.
    EXPECT_FALSE(OnFile(KillSettings{2000000000, 3, 0, 90}).luck);
    const TrialResult hard = OnFile(KillSettings{30, 3, 0, 100}, 5);
    EXPECT_THAT(hard.lines, ElementsAre(HasSubstr("最近 5 期都学不出达标的公式")));
    EXPECT_THAT(OnFile(OwnFormulasTrial{{"a1+"}}).lines, ElementsAre(HasSubstr("公式都出错")));
    EXPECT_EQ(ManyTestsLine(4), "");
    EXPECT_THAT(ManyTestsLine(5), HasSubstr("已经测了 5 种设置。"));
}

TEST_F(BlindTest, RefusesWhatIsNoSettingAndEndsWithoutAWord) {
    const std::vector<std::pair<TrialSettings, std::string>> cases = {
        {{BankerSettings{4, 3}}, "期数不能小于5期！"},
        {{KillSettings{10, 4, 0, 90}}, "请选择杀码个数！"},
        {{KillSettings{10, 1, 0, 9}}, "杀对概率不能大于100%或小于10%！"},
        {{SingleFormulaTrial{{"<", 0}}}, "没有公式能满足这个条件！"},
        {{HeatTrial{10, 34}}, "号码个数应为1到33！"},
        {{OwnFormulasTrial{kFormulas, FormulaTarget::kRed, 3, 2}}, "起始值不能大于结束值！"},
        {{PlanTrial{" \n"}}, "选号台里还没有方案！"},
        {{PlanTrial{"红球 01-40"}}, "第1行："},
        {{RedWrapTrial{}, -1}, "盲测期数填写错误！"},
    };
    for (const auto& [settings, text] : cases) {
        EXPECT_FALSE(RunBlindTest(session, settings, run));
        EXPECT_THAT(database.host().Texts().back(), HasSubstr(text));
    }
    EXPECT_EQ(database.host().boxes.size(), cases.size());

    // Left in the middle of its slowest part: the run ends with the pump, and says nothing.
    struct Watcher : RunWatcher {
        void ShowProgress(const std::string&) override {}
        bool IsWanted() const override { return wanted; }
        bool wanted = true;
    } watcher;
    ssq::Run left(database.host(), &watcher);
    database.host().onPump = [&] { watcher.wanted = false; };
    EXPECT_FALSE(RunBlindTest(session, {KillSettings{100, 3, 2, 10}, 500}, left));
    EXPECT_EQ(database.host().boxes.size(), cases.size());
    database.host().onPump = nullptr;
    database.Run("drop table cphm");
    EXPECT_FALSE(RunBlindTest(session, {RedWrapTrial{}}, run));
    EXPECT_THAT(database.host().Texts().back(), HasSubstr("cphm"));
}

}  // namespace
}  // namespace ssq
