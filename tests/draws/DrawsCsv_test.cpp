#include "draws/DrawsCsv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "draws/IssueRules.h"

namespace ssq {
namespace {

using testing::HasSubstr;

const std::string kFirstLine = "2026001,2026-01-01,16,01 02 03 04 05 06,06 05 04 03 02 01,370,150,";
const std::string kGood = kFirstLine + "1 2 3 4 5 6,10 20 30 40 50 60";

DrawsCsv Read(const std::string& lines) {
    return ReadDrawsCsv(std::string(kDrawsCsvHeading) + "\n" + lines, ParseDate("2026-11-24"));
}

TEST(DrawsCsv, RefusesEveryLineThatIsNoDrawAndKeepsTheRest) {
    const struct {
        const char* line;
        const char* reason;
    } kCases[] = {
        {"2026002,2026-01-04,16,01 02 03 04 05 06,,,", "列数"},
        {"2026367,2026-01-04,16,01 02 03 04 05 06,,,,,", "期号不正确"},
        {"2026002,2026-02-30,16,01 02 03 04 05 06,,,,,", "日期不正确"},
        {"2026002,2025-12-30,16,01 02 03 04 05 06,,,,,", "期号与日期的年份不符"},
        {"2026140,2026-11-25,16,01 02 03 04 05 06,,,,,", "日期还没有到"},
        {"2026002,2026-01-01,16,01 02 03 04 05 06,,,,,", "日期不在上一期之后"},
        {"2026001,2026-01-04,16,01 02 03 04 05 06,,,,,", "期号与第 2 行重复"},
        {"2026002,2026-01-04,17,01 02 03 04 05 06,,,,,", "蓝球不正确"},
        {"2026002,2026-01-04,16,01 02 03 04 05 34,,,,,", "红球（"},
        {"2026002,2026-01-04,16,01 02 03 04 06 05,,,,,", "红球（"},
        {"2026002,2026-01-04,16,01 02 03 04 05 05,,,,,", "红球（"},
        {"2026002,2026-01-04,16,01 02 03 04 05 06,06 05 04 03 02 07,,,,", "出球顺序"},
        {"2026002,2026-01-04,16,01 02 03 04 05 06,,1e9,,,", "投注总额"},
        {"2026002,2026-01-04,16,01 02 03 04 05 06,,,9999999999999999,,", "奖池"},
        {"2026002,2026-01-04,16,01 02 03 04 05 06,,,,1 2 3 4 5,", "中奖注数"},
        {"2026002,2026-01-04,16,01 02 03 04 05 06,,,,,1 2 3 4 5 x", "单注奖金"},
        {"2026002,2026-01-04,16,01 02 03 04 05 06,,,,9 1 1 1 1 1,1 1 1 1 1 2147483647",
         "奖金超出范围"},
    };
    for (const auto& c : kCases) {
        const DrawsCsv csv = Read(kGood + "\r\n\n" + c.line + "\n");
        ASSERT_EQ(csv.faults.size(), 1U) << c.line;
        EXPECT_EQ(csv.faults[0].line, 4);
        EXPECT_THAT(csv.faults[0].reason, HasSubstr(c.reason));
        EXPECT_EQ(WriteDrawsCsv(csv.draws), std::string(kDrawsCsvHeading) + "\n" + kGood + "\n");
    }
    for (const char* file : {"", "issue,date\n", "\xFF\xFE\x01\n"}) {
        EXPECT_EQ(ReadDrawsCsv(file).faults.size(), 1U);
    }
}

TEST(DrawsCsv, KnowsWhatTheLineTellsInAnyOrderOfLines) {
    const DrawsCsv csv = Read("2026002,2026/1/4,1,1 2 3 4 5 33,,,,- - 7 - - -,\n" + kGood);
    ASSERT_EQ(csv.draws.size(), 2U);
    const PublishedDraw& whole = csv.draws[0];
    EXPECT_EQ(whole.draw.drawn, "06,05,04,03,02,01");
    EXPECT_EQ(whole.amounts[5], 60);
    EXPECT_TRUE(HasWholeNotice(whole));
    const PublishedDraw& half = csv.draws[1];
    EXPECT_EQ(half.draw.date, "2026-01-04");
    EXPECT_EQ(half.tickets[2], 7);
    EXPECT_EQ(half.pool, std::nullopt);
    EXPECT_FALSE(HasWholeNotice(half));
}

TEST(DrawsCsv, HoldsSalesInATenthColumn) {
    std::string ranking = "33";
    for (int n = 32; n >= 1; --n) ranking += (n < 10 ? " 0" : " ") + std::to_string(n);
    const std::string file =
        std::string(kDrawsCsvHeading) + ",sales\n" + kGood + "," + ranking + "\n";
    const DrawsCsv csv = ReadDrawsCsv(file);
    ASSERT_EQ(csv.draws.size(), 1U);
    EXPECT_EQ(csv.draws[0].sales.back(), 1);
    EXPECT_EQ(WriteDrawsCsv(csv.draws), file);
}

TEST(IssueRules, FollowOverTheTurnOfTheYearOnlyWithoutRoomForADraw) {
    const auto follows = [](std::int32_t issue, const char* date, std::int32_t before,
                            const char* dateBefore) {
        return IsNextDraw(issue, *ParseDate(date), before, *ParseDate(dateBefore));
    };
    EXPECT_TRUE(follows(2026002, "2026-01-04", 2026001, "2026-01-01"));
    EXPECT_FALSE(follows(2026003, "2026-01-06", 2026001, "2026-01-01"));
    EXPECT_TRUE(follows(2025001, "2025-01-02", 2024151, "2024-12-31"));
    EXPECT_FALSE(follows(2025001, "2025-01-02", 2024150, "2024-12-29"));
    EXPECT_FALSE(follows(2026001, "2026-01-01", 2024151, "2024-12-31"));
    EXPECT_TRUE(follows(2004001, "2004-01-01", 2003089, "2003-12-28"));
}

}  // namespace
}  // namespace ssq
