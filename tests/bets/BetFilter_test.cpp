#include "bets/BetFilter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "bets/BetAttributes.h"
#include "bets/BetCheck.h"
#include "bets/BetList.h"
#include "bets/BetPlan.h"

namespace ssq {
namespace {

const RedSet kPrevious = RedSet::FromList("05,08,14,22,27,30");

std::string TextOf(std::uint32_t place) {
    std::string text;
    AppendBetText(place, text);
    return text;
}

TEST(BetAttributes, AreThoseOfTheExample) {
    const Bet bet({3, 8, 9, 13, 22, 31}, kPrevious);
    const Bet alone({3, 8, 9, 13, 22, 31}, {});
    const auto text = [](const std::string& name, const Bet& of) {
        const int attribute = FindBetAttribute(name);
        if (attribute < 0) return "no " + name;
        const BetAttribute& found = BetAttributes()[static_cast<std::size_t>(attribute)];
        return found.Text(found.Value(of));
    };
    const std::vector<std::pair<std::vector<std::string>, std::string>> expected{
        {{"和值"}, "86"},
        {{"跨度"}, "28"},
        {{"奇数", "奇数个数", "单数"}, "4"},
        {{"偶数", "偶数个数", "双数"}, "2"},
        {{"大数", "大数个数"}, "2"},
        {{"小数", "小数个数"}, "4"},
        {{"质数", "质数个数", "合数", "合数个数"}, "3"},
        {{"一区", "1区", "一区个数", "1区个数"}, "3"},
        {{"二区", "2区", "二区个数", "2区个数"}, "2"},
        {{"三区", "3区", "三区个数", "3区个数"}, "1"},
        {{"0路", "0路个数"}, "2"},
        {{"1路", "1路个数"}, "3"},
        {{"2路", "2路个数"}, "1"},
        {{"重号", "重号个数"}, "2"},
        {{"边号", "边号个数"}, "3"},
        {{"连号", "连号对数"}, "1"},
        {{"尾组", "尾数组数"}, "5"},
        {{"尾数和"}, "26"},
        {{"AC值", "AC"}, "8"},
        {{"首红", "龙头", "第1位"}, "3"},
        {{"第2位"}, "8"},
        {{"第3位"}, "9"},
        {{"第4位"}, "13"},
        {{"第5位"}, "22"},
        {{"尾红", "凤尾", "第6位"}, "31"},
        {{"最大间隔"}, "8"},
        {{"奇偶比"}, "4:2"},
        {{"大小比"}, "2:4"},
        {{"质合比"}, "3:3"},
        {{"三区比"}, "3:2:1"},
        {{"012路比"}, "2:3:1"},
    };
    for (const auto& [names, value] : expected) {
        for (const std::string& name : names) EXPECT_EQ(text(name, bet), value) << name;
    }
    EXPECT_EQ(text("重号", alone) + text("边号", alone), "00");
}

TEST(BetColumns, HoldEveryCombinationAndFollowTheDrawBefore) {
    struct Case {
        const char* name;
        int low;
        int high;
    };
    BetColumns columns;
    for (const Case& each : {Case{"和值", 21, 183}, Case{"跨度", 5, 32}, Case{"AC值", 0, 10},
                             Case{"尾组", 2, 6}, Case{"尾数和", 3, 51}, Case{"最大间隔", 0, 27}}) {
        const auto column = columns.Of(FindBetAttribute(each.name), {});
        ASSERT_EQ(column.size(), std::size_t{kCombinationCount});
        const auto [low, high] = std::minmax_element(column.begin(), column.end());
        EXPECT_EQ(*low, each.low) << each.name;
        EXPECT_EQ(*high, each.high) << each.name;
    }
    const int repeats = FindBetAttribute("重号");
    const auto place = static_cast<std::size_t>(CombinationRank({5, 8, 14, 22, 27, 30}));
    EXPECT_EQ(columns.Of(repeats, {})[place - 1], 0);
    EXPECT_EQ(columns.Of(repeats, kPrevious)[place - 1], 6);
}

TEST(BetFilter, CountsTheExample) {
    const BetPlan plan = ReadBetPlan(
                             "红球 01-20 22 25 28\n胆码 05\n蓝球 03,11\n容错 2\n"
                             "03,07,12,15,20,31/0~1\n!01-11/1~3\n和值 80~120\n奇数 2~4\n"
                             "AC值 >=6\n三区比 2:2:2 3:2:1 1:3:2\n")
                             .plan;
    BetColumns columns;
    const BetFilter filter(plan, {}, columns);
    EXPECT_EQ(filter.CountCandidates(), 26334);
    EXPECT_EQ(filter.CountByCondition(), (std::vector{18088, 15642, 6177, 22770, 20598, 4620}));
    const BetMatches matches = filter.Remaining();
    EXPECT_EQ(matches.Count(), 10804);
    EXPECT_EQ(TextOf(matches.FirstPlace()), "01,02,05,12,13,14");
    EXPECT_EQ(TextOf(matches.LastPlace()), "05,19,20,22,25,28");
    EXPECT_EQ(plan.Cost(matches.Count()), 43216);
    EXPECT_EQ(matches.Places().size(), 10804U);
}

// Plans of all kinds as a text, the same for the same seed.
class RandomPlan {
  public:
    explicit RandomPlan(unsigned seed) : random_(seed) {}

    int Number(int low, int high) {
        return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
    }

    std::string Text(int smallestPool, int largestPool, int mostConditions) {
        std::string text = "红球 " + Numbers(Number(smallestPool, largestPool)) + "\n";
        const std::string bankers = Number(0, 2) == 0 ? Numbers(Number(1, 5)) : "";
        text += "胆码 " + bankers + "\n";
        for (int killed = Number(1, 33); Number(0, 1) == 0; killed = Number(1, 33)) {
            if (RedSet::FromList(bankers).Has(killed)) continue;
            text += "杀码 " + std::to_string(killed) + "\n";
            break;
        }
        // Enough tolerance that plans with many conditions leave something, too.
        int conditions = Number(0, mostConditions);
        text += "容错 " + std::to_string(std::max(0, conditions / 2 - Number(0, 4))) + "\n";
        for (; conditions > 0; --conditions) {
            text += (Number(0, 9) == 0 ? "!" : "") + Condition() + "\n";
        }
        return text;
    }

  private:
    std::string Numbers(int count) {
        RedSet numbers;
        while (numbers.Count() < count) numbers.Add(Number(1, RedSet::kLargest));
        return numbers.ToList();
    }

    std::string Condition() {
        if (Number(0, 2) > 0) {
            const int low = Number(0, 2);
            return Numbers(Number(1, 14)) + "/" + std::to_string(low) + "~" +
                   std::to_string(low + Number(0, 4)) + ",6";
        }
        const auto& all = BetAttributes();
        const BetAttribute& attribute =
            all[static_cast<std::size_t>(Number(0, static_cast<int>(all.size()) - 1))];
        std::string text = std::string(attribute.name) + " ";
        for (int item = 0; item < 4; ++item) {
            // Values around those of a combination, so that they neither always nor never fit.
            const SixReds near = CombinationAt(Number(1, kCombinationCount));
            const int value = attribute.Value(Bet(near, kPrevious));
            text += attribute.Text(value);
            if (attribute.parts == 1) text += "~" + std::to_string(value + Number(0, 9));
            text += ",";
        }
        return text;
    }

    std::mt19937 random_;
};

TEST(BetFilter, AgreesWithTheCheckOfEveryBet) {
    BetColumns columns;
    int selective = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const std::string text = RandomPlan(seed).Text(7, 16, 25);
        const BetPlanReading reading = ReadBetPlan(text);
        ASSERT_TRUE(reading.errors.empty()) << text << reading.errors[0].Told();
        const BetPlan& plan = reading.plan;
        const RedSet previous = seed % 7 == 0 ? RedSet() : kPrevious;

        std::vector<int> usable;
        for (int red = 1; red <= RedSet::kLargest; ++red) {
            if (plan.Usable().Has(red)) usable.push_back(red);
        }
        std::int32_t candidates = 0;
        std::vector<std::int32_t> meeting(plan.conditions.size());
        std::vector<std::uint32_t> remaining;
        std::vector<bool> chosen(usable.size());
        std::fill_n(chosen.begin(), 6, true);
        do {  // from the first combination to the last
            SixReds reds{};
            RedSet set;
            for (std::size_t i = 0, next = 0; i < usable.size(); ++i) {
                if (!chosen[i]) continue;
                set.Add(reds[next++] = usable[i]);
            }
            const BetVerdict verdict = CheckBet(plan, set, previous);
            if (!verdict.candidate) continue;
            ++candidates;
            for (std::int32_t& count : meeting) ++count;
            for (const std::size_t failed : verdict.failed) --meeting[failed];
            if (verdict.remains) {
                remaining.push_back(static_cast<std::uint32_t>(CombinationRank(reds)));
            }
        } while (std::prev_permutation(chosen.begin(), chosen.end()));

        const BetFilter filter(plan, previous, columns);
        EXPECT_EQ(filter.CountCandidates(), candidates) << text;
        EXPECT_EQ(filter.CountByCondition(), meeting) << text;
        EXPECT_EQ(filter.Remaining().Places(), remaining) << text;
        const auto left = static_cast<std::int32_t>(remaining.size());
        if (left > 0 && left < candidates) ++selective;
    }
    EXPECT_GT(selective, 15);
}

TEST(BetFilter, AgreesWithTheCheckOfSampledBets) {
    BetColumns columns;
    for (unsigned seed = 100; seed < 112; ++seed) {
        RandomPlan random(seed);
        const std::string text = random.Text(28, 33, 12);
        const BetPlan plan = ReadBetPlan(text).plan;
        const BetMatches matches = BetFilter(plan, kPrevious, columns).Remaining();
        const std::vector<std::uint32_t> places = matches.Places();
        EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
        EXPECT_EQ(places.size(), static_cast<std::size_t>(matches.Count()));
        for (int sample = 0; sample < 1000; ++sample) {
            const std::int32_t place = random.Number(1, kCombinationCount);
            const Bet bet(CombinationAt(place), kPrevious);
            EXPECT_EQ(
                std::binary_search(places.begin(), places.end(), static_cast<std::uint32_t>(place)),
                CheckBet(plan, bet.set, kPrevious).remains)
                << text << bet.set.ToList();
        }
    }
}

TEST(BetCheck, LooksBackFromEachOfTheLastDraws) {
    const std::vector<RedSet> draws{
        RedSet::FromList("01,02,03,04,05,06"), RedSet::FromList("01,02,07,08,09,10"),
        RedSet::FromList("01,02,07,08,30,31"), RedSet::FromList("01,02")};
    const BetPlan plan = ReadBetPlan("重号 >=2\n!07,08/2\n杀码 31").plan;
    const auto goOn = [](double, double) { return true; };
    const BetHistory all = CheckHistory(plan, draws, 99, goOn).value();
    ASSERT_EQ(all.verdicts.size(), 4U);
    EXPECT_EQ(all.passed, 1);
    EXPECT_EQ(all.verdicts[0].failed, (std::vector<std::size_t>{0, 1}));
    EXPECT_TRUE(all.verdicts[1].remains);
    EXPECT_FALSE(all.verdicts[2].candidate);
    EXPECT_TRUE(all.verdicts[2].failed.empty());
    EXPECT_FALSE(all.verdicts[3].candidate);  // no six reds
    const BetHistory last = CheckHistory(plan, draws, 3, goOn).value();
    ASSERT_EQ(last.verdicts.size(), 3U);
    EXPECT_TRUE(last.verdicts[0].remains);  // the draw before it still counts
}

TEST(BetList, SortsStablyPagesAndPicks) {
    BetColumns columns;
    BetList list(BetFilter(ReadBetPlan("红球 01-15").plan, {}, columns).Remaining().Places());
    ASSERT_EQ(list.size(), 5005U);
    EXPECT_EQ(list.PageCount(), 6U);
    EXPECT_EQ(list.Page(5).size(), 5U);
    EXPECT_TRUE(list.Page(6).empty());

    const auto sums = columns.Of(FindBetAttribute("和值"), {});
    std::vector<std::uint32_t> sorted(list.Shown().begin(), list.Shown().end());
    const std::vector<std::uint32_t> ascending = sorted;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return sums[a - 1] < sums[b - 1]; });
    list.SortBy(columns.Of(FindBetAttribute("首红"), {}));
    list.SortBy(sums);
    EXPECT_TRUE(std::equal(sorted.begin(), sorted.end(), list.Shown().begin()));
    EXPECT_EQ(TextOf(list.Page(0)[1]), "01,02,03,04,05,07");
    list.SortByPlace();
    EXPECT_TRUE(std::equal(ascending.begin(), ascending.end(), list.Shown().begin()));

    std::mt19937_64 random(7);
    const std::vector<std::uint32_t> ten = list.PickAtRandom(10, random);
    EXPECT_EQ(ten.size(), 10U);
    EXPECT_EQ(std::adjacent_find(ten.begin(), ten.end(), std::greater_equal<>()), ten.end());
    EXPECT_TRUE(std::includes(ascending.begin(), ascending.end(), ten.begin(), ten.end()));
    EXPECT_NE(list.PickAtRandom(10, random), ten);
    EXPECT_EQ(list.PickAtRandom(9999, random), ascending);
}

}  // namespace
}  // namespace ssq
