// The number filter over all combinations: a walk that asks every bet every condition and leaves
// it at the failure too many, against rows of bits. Both find the same number of bets, the same
// first and the same last.
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>

#include "Ratio.h"
#include "base/combinations.h"
#include "bets/BetAttributes.h"
#include "bets/BetFilter.h"
#include "bets/BetList.h"
#include "bets/BetPlan.h"

namespace {

using ssq::RedSet;

const RedSet kPrevious = RedSet::FromList("05,08,14,22,27,30");

struct Outcome {
    std::int32_t count = 0;
    std::uint32_t first = 0;
    std::uint32_t last = 0;

    bool operator==(const Outcome&) const = default;
};

std::string PlanText(int lists, const std::string& counts, bool attributes, int tolerance) {
    std::mt19937 random(20030105U + static_cast<unsigned>(lists));
    std::string text = "容错 " + std::to_string(tolerance) + "\n";
    for (int list = 0; list < lists; ++list) {
        RedSet reds;
        while (reds.Count() < 6) reds.Add(static_cast<int>(random() % RedSet::kLargest) + 1);
        text += reds.ToList() + "/" + counts + "\n";
    }
    if (attributes) {
        text +=
            "和值 70~135\n跨度 18~31\n奇数 2~4\n大数 2~4\n"
            "重号 0~2\n连号 0~2\nAC值 >=5\n三区比 2:2:2 3:2:1 1:3:2 2:1:3 1:2:3 2:3:1 3:1:2\n";
    }
    return text;
}

bool Remains(const ssq::BetPlan& plan, const ssq::Bet& bet) {
    int failures = 0;
    for (const ssq::BetCondition& condition : plan.conditions) {
        const int value =
            condition.attribute < 0
                ? bet.set.CountIn(condition.numbers)
                : ssq::BetAttributes()[static_cast<std::size_t>(condition.attribute)].Value(bet);
        if (condition.values[static_cast<std::size_t>(value)]) continue;
        if (condition.must || ++failures > plan.tolerance) return false;
    }
    return true;
}

Outcome WalkLiterally(const ssq::BetPlan& plan) {
    Outcome outcome;
    std::uint32_t place = 0;
    ssq::SixReds r{};
    for (r[0] = 1; r[0] <= 28; ++r[0])
        for (r[1] = r[0] + 1; r[1] <= 29; ++r[1])
            for (r[2] = r[1] + 1; r[2] <= 30; ++r[2])
                for (r[3] = r[2] + 1; r[3] <= 31; ++r[3])
                    for (r[4] = r[3] + 1; r[4] <= 32; ++r[4])
                        for (r[5] = r[4] + 1; r[5] <= 33; ++r[5]) {
                            ++place;
                            if (!Remains(plan, ssq::Bet(r, kPrevious))) continue;
                            if (outcome.count++ == 0) outcome.first = place;
                            outcome.last = place;
                        }
    return outcome;
}

Outcome Filter(const ssq::BetPlan& plan, ssq::BetColumns& columns) {
    const ssq::BetMatches matches = ssq::BetFilter(plan, kPrevious, columns).Remaining();
    return {matches.Count(), matches.FirstPlace(), matches.LastPlace()};
}

void CompareWays(const std::string& counts, ssq::BetColumns& columns) {
    for (const int lists : {10, 50, 200}) {
        for (const bool attributes : {true, false}) {
            for (const int tolerance : {0, 2}) {
                const ssq::BetPlan plan =
                    ssq::ReadBetPlan(PlanText(lists, counts, attributes, tolerance)).plan;
                Outcome literal;
                Outcome fast;
                const double literalSeconds =
                    ssq::SecondsOf(1, [&] { literal = WalkLiterally(plan); });
                const double seconds = ssq::SecondsOf(15, [&] { fast = Filter(plan, columns); });
                const std::string what = std::to_string(lists) + " lists /" + counts + ", " +
                                         (attributes ? "8" : "0") + " attributes, tolerance " +
                                         std::to_string(tolerance) + ", " +
                                         std::to_string(fast.count) + " remain";
                ssq::RequireEqual(fast == literal, what);
                ssq::PrintRatio(what, literalSeconds, seconds);
            }
        }
    }
}

void TimeTheRest(ssq::BetColumns& columns) {
    const std::string text = PlanText(200, "0~3", true, 2);
    ssq::BetPlan plan;
    std::vector<std::int32_t> counts;
    std::vector<std::uint32_t> places;
    ssq::BetList list;
    const auto print = [](const char* what, double seconds) {
        std::printf("%s: %.3f ms\n", what, seconds * 1e3);
    };
    print("reading 208 conditions", ssq::SecondsOf(5, [&] { plan = ssq::ReadBetPlan(text).plan; }));
    const ssq::BetFilter filter(plan, kPrevious, columns);
    print("candidates of each condition",
          ssq::SecondsOf(5, [&] { counts = filter.CountByCondition(); }));
    const ssq::BetMatches all =
        ssq::BetFilter(ssq::ReadBetPlan("").plan, kPrevious, columns).Remaining();
    print("list of all combinations", ssq::SecondsOf(5, [&] { places = all.Places(); }));
    list = ssq::BetList(places);
    const auto sum = columns.Of(ssq::FindBetAttribute("和值"), kPrevious);
    print("sorting them by an attribute", ssq::SecondsOf(5, [&] { list.SortBy(sum); }));
    std::string page;
    print("texts of a page", ssq::SecondsOf(5, [&] {
              page.clear();
              for (const std::uint32_t place : list.Page(500)) ssq::AppendBetText(place, page);
          }));
}

}  // namespace

int main() {
    ssq::BetColumns columns;
    const ssq::BetPlan plan = ssq::ReadBetPlan(PlanText(200, "0~3", true, 2)).plan;
    Outcome first;
    const double seconds = ssq::SecondsOf(1, [&] { first = Filter(plan, columns); });
    std::printf("first run, columns made: %.3f ms\n", seconds * 1e3);
    CompareWays("0~3", columns);
    CompareWays("0~2", columns);
    TimeTheRest(columns);
    return 0;
}
