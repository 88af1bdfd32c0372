#include "bets/BetCheck.h"

#include <algorithm>

#include "bets/BetAttributes.h"

namespace ssq {

namespace {

constexpr int kRedsInBet = 6;

SixReds Ascending(RedSet set) {
    SixReds reds{};
    std::size_t next = 0;
    for (int red = 1; red <= RedSet::kLargest; ++red) {
        if (set.Has(red)) reds[next++] = red;
    }
    return reds;
}

bool Meets(const Bet& bet, const BetCondition& condition) {
    const int value =
        condition.attribute < 0
            ? bet.set.CountIn(condition.numbers)
            : BetAttributes()[static_cast<std::size_t>(condition.attribute)].Value(bet);
    return condition.values[static_cast<std::size_t>(value)];
}

}  // namespace

BetVerdict CheckBet(const BetPlan& plan, RedSet reds, RedSet previous) {
    BetVerdict verdict;
    if (reds.Count() != kRedsInBet) return verdict;
    verdict.candidate = reds.Without(plan.Usable()).empty() && plan.bankers.Without(reds).empty();
    const Bet bet(Ascending(reds), previous);
    bool mustsMet = true;
    int failures = 0;
    for (std::size_t i = 0; i < plan.conditions.size(); ++i) {
        if (Meets(bet, plan.conditions[i])) continue;
        verdict.failed.push_back(i);
        if (plan.conditions[i].must) {
            mustsMet = false;
        } else {
            ++failures;
        }
    }
    verdict.remains = verdict.candidate && mustsMet && failures <= plan.tolerance;
    return verdict;
}

std::optional<BetHistory> CheckHistory(const BetPlan& plan, std::span<const RedSet> draws,
                                       std::size_t count, const CheckStep& step) {
    BetHistory history;
    const std::size_t first = draws.size() - std::min(count, draws.size());
    for (std::size_t i = first; i < draws.size(); ++i) {
        if (!step(static_cast<double>(i - first), static_cast<double>(draws.size() - first))) {
            return std::nullopt;
        }
        history.verdicts.push_back(CheckBet(plan, draws[i], i > 0 ? draws[i - 1] : RedSet()));
        if (history.verdicts.back().remains) ++history.passed;
    }
    return history;
}

}  // namespace ssq
