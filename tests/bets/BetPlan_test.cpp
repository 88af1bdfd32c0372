#include "bets/BetPlan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bets/BetAttributes.h"

namespace ssq {
namespace {

// All errors as they are told, one a line.
std::string Told(const BetPlanReading& reading) {
    std::string told;
    for (const BetPlanError& error : reading.errors) told += error.Told() + "\n";
    return told;
}

// !和值[80..120] or 01,02[0..1]: what a line was understood as.
std::string Understood(const BetCondition& condition) {
    std::string text = condition.must ? "!" : "";
    text += condition.attribute < 0
                ? condition.numbers.ToList()
                : std::string(BetAttributes()[static_cast<std::size_t>(condition.attribute)].name);
    for (std::size_t value = 0; value < condition.values.size(); ++value) {
        if (!condition.values[value]) continue;
        std::size_t end = value;
        while (end + 1 < condition.values.size() && condition.values[end + 1]) ++end;
        text += "[" + std::to_string(value) + ".." + std::to_string(end) + "]";
        value = end;
    }
    return text;
}

TEST(BetPlan, UnderstandsEveryWayOfWriting) {
    struct Case {
        std::vector<std::string> lines;
        std::string understood;
    };
    const std::vector<Case> cases{
        {{"奇数2~4", "奇数 2~4", "奇数：2-4", "奇数=2～4", "单数/2至4",
          "\uFEFF奇数个数　2 —— \u200B4"},
         "奇数[2..4]"},
        {{"ac值>=6", "AC ≥ 6", "ＡＣ值：＞＝６", "ac6~"}, "AC值[6..255]"},
        {{"!01-11/1~3", "必须 1~11：1到3", "! ~11=1,2,3", "必须:01 02,3~11;5/1 2、3"},
         "!01,02,03,04,05,06,07,08,09,10,11[1..3]"},
        {{"05 01-03 09 02/0,2~3", "1~3，５、9／0 2~3 # 备注 /9"}, "01,02,03,05,09[0..0][2..3]"},
        {{"31~/<=1", "33,32,31/≤１", "31-/~1"}, "31,32,33[0..1]"},
        {{"三区比2:2:2 3:2:1", "三区比：3∶2∶1,2:2 : 2"}, "三区比[16..16][23..23]"},
        {{"龙头 999", "第1位：300~400"}, "首红"},
    };
    for (const Case& each : cases) {
        for (const std::string& line : each.lines) {
            const BetPlanReading reading = ReadBetPlan(line);
            EXPECT_EQ(Told(reading), "") << line;
            ASSERT_EQ(reading.plan.conditions.size(), 1U) << line;
            EXPECT_EQ(Understood(reading.plan.conditions[0]), each.understood) << line;
        }
    }
}

TEST(BetPlan, ReadsStatementsAndSkipsWhatIsEmpty) {
    const BetPlanReading reading = ReadBetPlan(
        "# 下期方案\r\n红球\r拖码 01-20, 22\r\n\n胆码：５、7\n杀号=13\n蓝球 11 3,03\n杀码 "
        ",,\n容错<=2\n"
        "/0~1\n,,：0~1\n 奇数 2 # 单\n!01/1");
    EXPECT_EQ(Told(reading), "");
    const BetPlan& plan = reading.plan;
    EXPECT_EQ(plan.pool, RedSet::FromList("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,22"));
    EXPECT_EQ(plan.bankers, RedSet::FromList("5,7"));
    EXPECT_EQ(plan.killed, RedSet::FromList("13"));
    EXPECT_EQ(plan.blues, (std::vector{3, 11}));
    EXPECT_EQ(plan.tolerance, 2);
    EXPECT_EQ(plan.lines, (std::array{3, 5, 6, 7, 9}));
    ASSERT_EQ(plan.conditions.size(), 2U);
    EXPECT_EQ(plan.conditions[0].line, 12);
    EXPECT_EQ(plan.conditions[0].text, "奇数 2");
    EXPECT_EQ(plan.conditions[1].text, "!01/1");
    EXPECT_EQ(plan.Cost(10), 40);
    EXPECT_EQ(ReadBetPlan("").plan.Cost(10), 20);
}

TEST(BetPlan, TellsEveryErrorAtItsLine) {
    const std::string number = "号码不能大于33或者小于1！";
    const std::string value = "数值不能大于999！";
    const std::string order = "起始值不能大于结束值！";
    const std::string noValue = "缺少范围，例如 2~4";
    const std::string noCount = "号码后面缺少“/个数”，例如 /0~1";
    const std::string ratio = "比例的各项相加应为6";
    const std::string tolerance = "容错应为一个数，例如 容错 2";
    struct Case {
        std::string text;
        std::vector<std::pair<int, std::string>> errors;
    };
    const std::vector<Case> cases{
        // The part is quoted as it was typed.
        {"\n\n你好，０１", {{3, "看不懂“你好”"}}},
        {"01,0x-2 /1", {{1, "看不懂“0x-2”"}}},
        {"01/1~2-3\r01/~\r\n01/>2\n01/>=2,3\n01>=2\n01/2/3",
         {{1, "看不懂“1~2-3”"},
          {2, "看不懂“~”"},
          {3, "看不懂“>2”"},
          {4, "看不懂“>=2”"},
          {5, "看不懂“01>”"},
          {6, "看不懂“2/3”"}}},
        {"!\n! 红球 01-20\n必须\n!!01/1\n奇数 \xFF",
         {{1, "看不懂“!”"},
          {2, "看不懂“! 红球 01-20”"},
          {3, "看不懂“必须”"},
          {4, "看不懂“!01”"},
          {5, "看不懂“\xFF”"}}},
        {"三区比 3:3\n奇偶比 2:2:2\n三区比 2::4\n奇偶比 -1:7",
         {{1, "看不懂“3:3”"}, {2, "看不懂“2:2:2”"}, {3, "看不懂“2::4”"}, {4, "看不懂“-1:7”"}}},
        {"01,02\n01,34\n一区二", {{1, noCount}, {2, number}, {3, "看不懂“二”"}}},
        {"01/\n奇数\n奇数 ,\n!三区比：\n/",
         {{1, noValue}, {2, noValue}, {3, noValue}, {4, noValue}, {5, noValue}}},
        {"0/1\n1~34/1\n40~2/1\n红球 1-99999999999999999999\n蓝球 17\n34/x",
         {{1, number},
          {2, number},
          {3, number},
          {4, number},
          {5, "号码不能大于16或者小于1！"},
          {6, number}}},
        {"01/1000\n和值 >=1000\n容错 1000\n01/0~1000,x",
         {{1, value}, {2, value}, {3, value}, {4, value}}},
        {"5~4/1\n01/3~1\n/2~1\n容错 3~1", {{1, order}, {2, order}, {3, order}, {4, order}}},
        {"三区比 2:2:2 3:2:2\n奇偶比 99999999999:1", {{1, ratio}, {2, ratio}}},
        {"容错 1~2", {{1, tolerance}}},
        {"容错 2,3", {{1, tolerance}}},
        {"容错 ~2", {{1, tolerance}}},
        {"容错 >=2", {{1, tolerance}}},
        {"容错 x", {{1, "看不懂“x”"}}},
        // A wrong line is a line; an empty one is none.
        {"容错\n容错 x\n容错 2\n容错", {{2, "看不懂“x”"}, {3, "“容错”只能写一行"}}},
        {"红球 01-20\n复式 99", {{2, "“红球”只能写一行"}}},
        {"胆码 1-5 6 1", {{1, "胆码最多5个"}}},
        {"杀码 8,9,5\n01/9x\n胆码 1,5,8", {{2, "看不懂“9x”"}, {3, "05既是胆码又是杀码"}}},
        {"胆码 5,8\n01/\n杀码 9,8,5\n01", {{2, noValue}, {3, "08既是胆码又是杀码"}, {4, noCount}}},
        {"胆码 5,34\n杀码 5", {{1, number}}},
        {"红球 01-05\n\n胆码 3", {{3, "胆码和拖码总数不能小于6个"}}},
        {"杀码 01-28\n01/1", {{1, "红球不能小于6个"}}},
        {"红球 01-05\n01/", {{2, noValue}}},
        {"红球 01-05\n胆码 6", {}},
    };
    for (const Case& each : cases) {
        std::string told;
        for (const auto& [line, text] : each.errors) {
            told += "第" + std::to_string(line) + "行：" + text + "\n";
        }
        EXPECT_EQ(Told(ReadBetPlan(each.text)), told) << each.text;
    }
}

}  // namespace
}  // namespace ssq
