// One bet against a plan, condition by condition, as a reader of the plan would check it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "base/RedSet.h"
#include "bets/BetPlan.h"

namespace ssq {

struct BetVerdict {
    bool candidate = false;           // of usable reds, with all bankers
    std::vector<std::size_t> failed;  // indexes into the plan's conditions
    bool remains = false;             // a candidate within the tolerance, all musts met
};

// `reds` are six; anything else is no candidate and fails nothing. `previous` is the draw before,
// empty when there is none.
BetVerdict CheckBet(const BetPlan& plan, RedSet reds, RedSet previous);

// What the plan would have said of past draws.
struct BetHistory {
    std::vector<BetVerdict> verdicts;  // in the order of the draws
    int passed = 0;
};

// Told before each draw how many have been checked; false ends the check.
using CheckStep = std::function<bool(double done, double total)>;

// Checks the last `count` of the draws (oldest first), each with the draw before it. Nothing when a
// step ended it.
std::optional<BetHistory> CheckHistory(const BetPlan& plan, std::span<const RedSet> draws,
                                       std::size_t count, const CheckStep& step);

}  // namespace ssq
