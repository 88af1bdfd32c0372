#include "kill/KillRecommend.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <tuple>

#include "draws/Public_var.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;

constexpr Rgb kBand{0xEC, 0xF1, 0xF1};
constexpr Rgb kMark{0xD7, 0x85, 0x6E};

// Ten equal draws and two more; Q1B1 and Q2B2 are learned.
class KillRecommendTest : public testing::Test {
  protected:
    void SetUp() override {
        for (int draw = 1; draw <= 10; ++draw) Add(2020000 + draw, "07,08,09,10,11,12");
        Add(2020011, "06,20,21,22,23,24");
        Add(2020012, "01,02,03,04,32,33");
        Learned("0,14");
        database.Run("delete from vqs where itype=1");
        database.Run("insert into vqs(xxqs,dmgs,rc,setRate,itype) values(10,3,0,90,1)");
    }
    void Learned(const std::string& dsgs) {
        database.Run("delete from tds");
        database.Run("insert into tds(dsgs,dsrate,dstype) values('" + dsgs + "',90,1)");
    }
    void Add(int issue, std::string_view reds) { database.AddDraw(issue, "2020-02-06", reds, 7); }
    bool Recommend(const std::string& start, const std::string& end) {
        auto report = KillRecommend(session, {start, end});
        if (report) result = std::move(*report);
        return report.has_value();
    }
    std::string Row(int row) const {
        std::string text;
        for (int col = 2; col < result.grid.cols(); ++col) {
            text += (col > 2 ? "," : "") + result.grid.cell(row, col);
        }
        return text;
    }

    TestDatabase database;
    Session& session = database.session();
    GridReport result;
};

TEST_F(KillRecommendTest, ShowsEachDrawTheForecastAndTheRates) {
    ASSERT_TRUE(Recommend("2020011", "2020012"));
    const ResultGrid& grid = result.grid;
    EXPECT_EQ(grid.cell(1, 0) + " " + grid.cell(1, 1), "2020011 06,20,21,22,23,24");
    EXPECT_EQ(result.caption,
              "杀码统计结果,共2期数据(当前的学习模式是：10期内杀12码,最多允许错0码)");
    // Seven and eleven different numbers: (C(26,6) + C(22,6)) / 2 of C(33,6).
    EXPECT_EQ(result.remark, "机会线：随便杀同样多的号码，判定√ 13.76%，单个位置杀对 81.82%。");
    EXPECT_EQ(Row(0), "01,02,03,04,05,06,07,08,09,10,11,12,命中,判定");
    // 06 is killed by both formulas and counts once.
    EXPECT_EQ(Row(1), "06,07,08,09,10,11,05,06,07,08,09,10,1,×");
    EXPECT_EQ(Row(2), "05,19,20,21,22,23,05,06,07,08,09,10,0,√");
    EXPECT_EQ(grid.cell(3, 1), "2020013期杀号推荐");
    EXPECT_EQ(Row(3), "33,01,02,03,31,32,04,18,19,20,21,22,,");
    EXPECT_EQ(grid.cell(4, 1), "杀对的概率");
    EXPECT_EQ(Row(4), "50,100,100,100,100,100,100,50,100,100,100,100,,50");

    const std::tuple<int, int, std::optional<Rgb>> backs[] = {
        {1, 2, kMark},  {1, 9, kMark},         {1, 3, std::nullopt}, {1, 8, kBand},
        {3, 13, kBand}, {3, 14, std::nullopt}, {4, 8, std::nullopt}};
    for (const auto& [row, col, back] : backs) EXPECT_EQ(grid.style(row, col).back, back);
    EXPECT_EQ(grid.rowHeight(2), 300);
    EXPECT_EQ(grid.rowHeight(3), 400);
    const CellStyle& verdict = grid.style(2, 15);
    EXPECT_TRUE(verdict.fore == kMark && verdict.bold && verdict.fontSize == 16);
    EXPECT_EQ(grid.style(4, 2).fontName, "Arial Narrow");
}

TEST_F(KillRecommendTest, FollowsTheSizeOfTheStoredSetAndTheTolerance) {
    database.Run("update vqs set rc=2 where itype=1");
    // The first columns of the banded blocks, by the stored set.
    const std::pair<const char*, std::vector<int>> cases[] = {
        {"0", {}}, {"0,14", {8}}, {"0,14,28", {8}}, {"0,14,28,42", {8, 20}}};
    int cols = 4;
    for (const auto& [dsgs, blocks] : cases) {
        Learned(dsgs);
        ASSERT_TRUE(Recommend("2020012", "2020012"));
        EXPECT_EQ(result.grid.cols(), cols += 6);
        EXPECT_EQ(result.grid.cell(1, cols - 1), "√");  // at most 03 and 04 are wrong
        std::vector<int> banded;
        for (int col = 2; col < 22; col += 6) {
            if (result.grid.style(2, col).back == kBand) banded.push_back(col);
        }
        EXPECT_EQ(banded, blocks) << dsgs;
    }
}

TEST_F(KillRecommendTest, JudgesADrawWithoutTenEarlierOnesInTheFirstKillColumns) {
    ASSERT_TRUE(Recommend("", "2020011"));  // from the first draw on
    EXPECT_THAT(database.host().Texts(), std::vector<std::string>(10, "数据不足！"));
    ASSERT_TRUE(Recommend("2020009", "2020011"));
    EXPECT_EQ(Row(1), "0,√,,,,,,,,,,,,");
    EXPECT_EQ(Row(3), "06,07,08,09,10,11,05,06,07,08,09,10,1,×");
    EXPECT_EQ(result.grid.cell(5, 15), "66.67");
}

TEST_F(KillRecommendTest, TellsWhatIsMissing) {
    const auto refusal = [&](const std::string& start, const std::string& end) {
        database.host().boxes.clear();
        EXPECT_FALSE(Recommend(start, end));
        EXPECT_EQ(result.grid.rows(), 0);
        return database.host().Texts();
    };
    EXPECT_THAT(refusal("2020012", "2020011"), ElementsAre("无数据！"));
    EXPECT_THAT(refusal("x", "2020011"), ElementsAre("期号填写错误！"));
    EXPECT_THAT(refusal("2020011", "2020099"), ElementsAre("期号填写错误！"));  // never drawn
    database.Run("delete from vqs where itype=1");
    EXPECT_THAT(refusal("2020011", "2020012"), ElementsAre("读取参数出错！"));
    Learned("0,130");
    EXPECT_THAT(refusal("2020011", "2020012"), ElementsAre("条件错误！"));
    database.Run("delete from tds");
    EXPECT_THAT(refusal("2020011", "2020012"), ElementsAre("数据不足！"));
}

TEST(KillConditions, TakeSixColumnsAFormulaAndPairsAcrossFour) {
    ResultGrid grid(2, 28, 1, 1);
    for (int col = 0; col < 28; ++col) grid.SetCell(1, col, "c" + std::to_string(col));
    EXPECT_EQ(
        KillConditions(grid),
        "c2,c3,c4,c5,c6,c7/0~1\r\nc8,c9,c10,c11,c12,c13/0~1\r\nc14,c15,c16,c17,c18,c19/0~1\r\n"
        "c20,c21,c22,c23,c24,c25/0~1\r\nc2,c8/0~1\r\nc7,c13/0~1\r\nc8,c14/0~1\r\n"
        "c13,c19/0~1\r\nc14,c20/0~1\r\nc19,c25/0~1\r\nc2,c25/0~1\r\n");
    EXPECT_EQ(KillConditions(ResultGrid(2, 22, 1, 1)), ",,,,,/0~1\r\n,,,,,/0~1\r\n,,,,,/0~1\r\n");
    EXPECT_EQ(KillConditions({}), "");
}

}  // namespace
}  // namespace ssq
