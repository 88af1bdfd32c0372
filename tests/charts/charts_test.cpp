// The charts of tails, consecutive numbers and number segments over hand-worked draws.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "charts/ConsecutiveChart.h"
#include "charts/NumberSegments.h"
#include "charts/RowColumnChart.h"
#include "charts/TailChart.h"
#include "charts/rowLngZST.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;

class ChartsTest : public testing::Test {
  protected:
    void AddDraws(const std::vector<const char*>& draws) {
        int issue = 2024001;
        for (const char* reds : draws) database.AddDraw(issue++, "2024-01-02", reds, 7, drawn);
    }
    // The texts of a row from one column to another.
    static std::string Row(const std::optional<GridReport>& report, int row, int first, int last) {
        std::vector<std::string> texts;
        for (int col = first; col <= last; ++col) texts.push_back(report->grid.cell(row, col));
        return Join(texts, " ");
    }

    TestDatabase database;
    Session& session = database.session();
    const PeriodRange all{"2024001", "2024999"};
    const PeriodRange none{"2024999", "2024001"};
    const char* drawn = "";
};

TEST_F(ChartsTest, TailsAndTheirRates) {
    // Tails 1 4 6 0 7 0, twice, then 3 3 3 5 5 5.
    AddDraws({"01,04,16,20,27,30", "01,04,16,20,27,30", "03,13,23,05,15,25"});
    const auto chart = BuildTailChart(session, all);
    ASSERT_TRUE(chart);
    EXPECT_EQ(Row(chart, 1, 0, 1), "4001 01,04,06,00,07,00");
    EXPECT_EQ(Row(chart, 1, 2, 16), "2 1 0 0 1 0 1 1 0 0 1 3 1 2 18");
    EXPECT_EQ(Row(chart, 1, 17, 25), "4:2 2:4 2:4 3:1:2 AACBAB 1 0 2 00,00,01,04,06,07");
    EXPECT_EQ(Row(chart, 1, 26, 45), "      3 2 6 7 7 5 10 6 7 7 3 2 1 ");
    EXPECT_EQ(Row(chart, 3, 26, 45), "2 1 3 5 2 5 0 0 2 0 0 6 6 8 10 10 0 3 3 0");
    EXPECT_EQ(Row(chart, 4, 1, 16),
              "共3期>=1命中率 66.67 66.67 0 33.33 66.67 33.33 66.67 66.67 0 0 "
              "100 66.67 100 66.67 ");
    EXPECT_EQ(Row(chart, 5, 2, 13), "66.67 0 0 0 0 0 0 0 0 0 33.33 ");
    EXPECT_EQ(Row(chart, 6, 12, 26), "0              0");
    EXPECT_EQ(Row(chart, 6, 32, 36), "33.33 33.33 33.33 33.33 33.33");
    EXPECT_EQ(Row(chart, 4, 22, 24), "100 33.33 66.67");
    EXPECT_EQ(Row(chart, 4, 32, 45),
              "66.67 0 0 66.67 66.67 66.67 0 0 66.67 66.67 66.67 100 100 "
              "33.33");
    EXPECT_EQ(Row(chart, 5, 32, 45), "0 0 66.67 66.67 66.67 0 66.67 0 33.33 33.33 0 66.67 0 0");
    EXPECT_EQ(Row(chart, 6, 42, 45), "33.33 33.33 33.33 33.33");
    EXPECT_EQ(chart->grid.style(3, 5).back, (Rgb{236, 241, 150}));
    EXPECT_EQ(chart->grid.style(1, 2).back, (Rgb{236, 241, 200}));
    EXPECT_FALSE(chart->grid.style(2, 26).back);
    EXPECT_EQ(Row(BuildTailChart(session, none), 3, 1, 2), "共0期=0命中率 -");
}

TEST_F(ChartsTest, ConsecutiveNumbers) {
    AddDraws({"01,03,05,07,09,11", "05,06,07,14,15,33", "01,03,05,07,09,11", "07,08,20,22,24,33"});
    const auto chart = BuildConsecutiveChart(session, all);
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->caption, "走势图结果  [共4期]");
    EXPECT_EQ(Row(chart, 1, 36, 48), "0 0 0 0 0 0 0 0     ");
    EXPECT_EQ(Row(chart, 2, 36, 48), "0 0 1 0 0 0 3 0 2 1   ");
    EXPECT_EQ(Row(chart, 2, 7, 17), "05 06        14 ");
    EXPECT_EQ(Row(chart, 3, 42, 43), "0 1");
    EXPECT_EQ(Row(chart, 4, 42, 48), "1 0 1    ");
    EXPECT_FALSE(BuildConsecutiveChart(session, none));
    EXPECT_THAT(database.host().Texts(), ElementsAre("无数据！"));
}

TEST_F(ChartsTest, RowsOfTheTailsInBothOrders) {
    drawn = "33,21,12,16,04,05";
    AddDraws({"04,05,12,16,21,33", "04,05,12,16,21,33", "10,20,09,19,30,29"});
    const auto bySize = BuildRowColumnChart(session, all, BallOrder::kBySize, 0);
    const auto asDrawn = BuildRowColumnChart(session, all, BallOrder::kAsDrawn, 0);
    ASSERT_TRUE(bySize && asDrawn);
    EXPECT_EQ(Row(bySize, 2, 3, 22), "2 3 1 3 1 2       2 2 2 2 0 0  ");
    EXPECT_EQ(Row(asDrawn, 2, 3, 22), "2 1 1 3 2 3       2 2 2 2 0 0  ");
    EXPECT_EQ(Row(bySize, 3, 9, 22), "6      2 2 2 2 0 0 5 ");
    EXPECT_EQ(Row(bySize, 4, 3, 22), "5 5 5 5 5 5 0      4 0 0 0 0 6 1 ");
    EXPECT_EQ(Row(bySize, 5, 9, 16), "50 0 0 0 0 0 100 ");
    const PeriodRange one{"2024001", "2024001"};
    EXPECT_EQ(Row(BuildRowColumnChart(session, one, BallOrder::kBySize, 1), 3, 9, 10), "- 0");
}

TEST_F(ChartsTest, SegmentsEndAtADrawThatIsNotAscending) {
    // Segments 1, 1, 16, 1, 1; places 1, 2, 1107568, 29, 1.
    AddDraws({"01,02,03,04,05,06", "01,02,03,04,05,07", "28,29,30,31,32,33", "01,02,03,04,06,07",
              "01,02,03,04,05,06", "02,01,03,04,05,06"});
    const auto chart = BuildSegmentChart(session, all);
    ASSERT_TRUE(chart);
    EXPECT_THAT(database.host().Texts(), ElementsAre(testing::HasSubstr("a0")));
    EXPECT_EQ(Row(chart, 1, 0, 5), "2024001 01,02,03,04,05,06 07 01 1 ");
    EXPECT_EQ(Row(chart, 1, 20, 29), "0 0 0 0 0 0 0 1 0 00");
    EXPECT_EQ(Row(chart, 2, 20, 29), "0 0 0 0 0 0 1 2 1 01");
    EXPECT_EQ(Row(chart, 3, 19, 29), "16 0 0 0 0 0 0 0 1107568 1107566 16");
    EXPECT_EQ(Row(chart, 4, 20, 29), "1 0 0 0 0 0 0 29 1107539 16");
    EXPECT_EQ(Row(chart, 6, 1, 4), "共5期  20 80");
    EXPECT_EQ(Row(chart, 6, 19, 27), "20 20 0 0 0 0 0 40 ");
    EXPECT_EQ(chart->grid.style(3, 19).back, (Rgb{171, 166, 239}));
    EXPECT_EQ(chart->grid.style(6, 19).back, (Rgb{187, 223, 230}));
    EXPECT_EQ(SegmentOf(69223) * 100 + SegmentOf(69224), 102);
}

TEST(CombinationRank, KnowsTheExactForm) {
    const std::pair<const char*, int> cases[] = {
        {"01,02,03,04,06,07", 29}, {"28,29,30,31,32,33", 1107568}, {"01,02,03,04,05,34", 0},
        {"02,01,03,04,05,06", 0},  {"01,02,03,04,05,05", 0},       {"1,2,3,4,5,6", 0},
        {"01,02,03,04,05,06,", 0}, {"01 02,03,04,05,06", 0},       {"00,01,02,03,04,05", 0},
        {"01,02,03,04,05,0x", 0}};
    for (const auto& [text, rank] : cases) EXPECT_EQ(CombinationRank(text), rank) << text;
}

}  // namespace
}  // namespace ssq
