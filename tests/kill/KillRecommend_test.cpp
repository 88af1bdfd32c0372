#include "kill/KillRecommend.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Public_var.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
        return KillRecommend(session, {start, end}, result);
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
    KillRecommendation result;
};

TEST_F(KillRecommendTest, ShowsEachDrawTheForecastAndTheRates) {
    ASSERT_TRUE(Recommend("2020011", "2020012"));
    const ResultGrid& grid = result.grid;
    EXPECT_EQ(result.caption,
              "杀码统计结果,共2期数据(当前的学习模式是：10期内杀12码,最多允许错0码)");
    EXPECT_EQ(grid.rows(), 5);
    EXPECT_EQ(grid.cols(), 16);
    EXPECT_EQ(Row(0), "01,02,03,04,05,06,07,08,09,10,11,12,命中,判定");
    EXPECT_EQ(grid.cell(1, 0), "2020011");
    EXPECT_EQ(grid.cell(1, 1), "06,20,21,22,23,24");
    // 06 is killed by both formulas and counts once.
    EXPECT_EQ(Row(1), "06,07,08,09,10,11,05,06,07,08,09,10,1,×");
    EXPECT_EQ(Row(2), "05,19,20,21,22,23,05,06,07,08,09,10,0,√");
    EXPECT_EQ(grid.cell(3, 0), "");
    EXPECT_EQ(grid.cell(3, 1), "2020013期杀号推荐");
    EXPECT_EQ(Row(3), "33,01,02,03,31,32,04,18,19,20,21,22,,");
    EXPECT_EQ(grid.cell(4, 1), "杀对的概率");
    EXPECT_EQ(Row(4), "50,100,100,100,100,100,100,50,100,100,100,100,,50");

    EXPECT_EQ(grid.rowHeight(2), 300);
    EXPECT_EQ(grid.rowHeight(3), 400);
    EXPECT_EQ(grid.style(1, 2).back, kMark);
    EXPECT_EQ(grid.style(1, 9).back, kMark);
    EXPECT_EQ(grid.style(1, 3).back, std::nullopt);
    EXPECT_EQ(grid.style(1, 8).back, kBand);
    EXPECT_EQ(grid.style(3, 13).back, kBand);
    EXPECT_EQ(grid.style(3, 14).back, std::nullopt);
    EXPECT_EQ(grid.style(4, 8).back, std::nullopt);
    EXPECT_EQ(grid.style(2, 15).fore, kMark);
    EXPECT_TRUE(grid.style(2, 15).bold);
    EXPECT_EQ(grid.style(2, 15).fontSize, 16);
    EXPECT_EQ(grid.style(1, 15).fore, std::nullopt);
    EXPECT_EQ(grid.style(4, 2).fontName, "Arial Narrow");
}

TEST_F(KillRecommendTest, FollowsTheSizeOfTheStoredSetAndTheTolerance) {
    database.Run("update vqs set rc=2 where itype=1");
    struct Case {
        const char* dsgs;
        int cols;
        std::vector<int> banded;  // of the columns 2, 8, 14 and 20
    };
    const Case cases[] = {
        {"0", 10, {}}, {"0,14", 16, {8}}, {"0,14,28", 22, {8}}, {"0,14,28,42", 28, {8, 20}}};
    for (const Case& c : cases) {
        Learned(c.dsgs);
        ASSERT_TRUE(Recommend("2020012", "2020012"));
        EXPECT_EQ(result.grid.cols(), c.cols);
        EXPECT_EQ(result.grid.cell(1, c.cols - 1), "√");  // at most 03 and 04 are wrong
        std::vector<int> banded;
        for (int col = 2; col < 22; col += 6) {
            if (result.grid.style(2, col).back == kBand) banded.push_back(col);
        }
        EXPECT_EQ(banded, c.banded) << c.dsgs;
    }
}

TEST_F(KillRecommendTest, JudgesADrawWithoutTenEarlierOnesInTheFirstKillColumns) {
    ASSERT_TRUE(Recommend("2020009", "2020011"));
    EXPECT_THAT(database.host().Texts(), ElementsAre("数据不足！", "数据不足！"));
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
    EXPECT_THAT(refusal("", "2020011"), ElementsAre("期号填写错误！"));
    database.Run("delete from vqs where itype=1");
    EXPECT_THAT(refusal("2020011", "2020012"), ElementsAre("读取参数出错！"));
    Learned("0,130");
    EXPECT_THAT(refusal("2020011", "2020012"), ElementsAre("条件错误！"));
    database.Run("delete from tds");
    EXPECT_THAT(refusal("2020011", "2020012"), ElementsAre("数据不足！"));
}

}  // namespace
}  // namespace ssq
