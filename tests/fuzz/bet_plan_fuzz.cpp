// The reader of plans on any bytes: it ends, its errors stand in line order, and what it takes for
// a plan is one.
#include "bets/BetPlan.h"
#include "fuzz/Fuzz.h"

namespace {

// A condition alone on its line means what it meant in the plan.
void PromiseSameAlone(const ssq::BetCondition& condition) {
    const ssq::BetPlanReading alone = ssq::ReadBetPlan(condition.text);
    ssq::Promise(alone.errors.empty() && alone.plan.conditions.size() == 1);
    const ssq::BetCondition& read = alone.plan.conditions[0];
    ssq::Promise(read.must == condition.must && read.attribute == condition.attribute &&
                 read.numbers == condition.numbers && read.values == condition.values);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ssq::BetPlanReading reading = ssq::ReadBetPlan(ssq::FuzzText(data, size));
    int last = 0;
    for (const ssq::BetPlanError& error : reading.errors) {
        ssq::Promise(error.line > last && !error.text.empty());
        last = error.line;
    }
    const ssq::BetPlan& plan = reading.plan;
    last = 0;
    for (const ssq::BetCondition& condition : plan.conditions) {
        ssq::Promise(condition.line > last);
        last = condition.line;
        PromiseSameAlone(condition);
    }
    if (!reading.errors.empty()) return 0;
    ssq::Promise(plan.Usable().Count() >= 6 && plan.bankers.Count() <= 5);
    ssq::Promise((plan.bankers & plan.killed).empty());
    ssq::Promise(plan.tolerance >= 0 && plan.tolerance <= 999);
    for (const int blue : plan.blues) ssq::Promise(blue >= 1 && blue <= 16);
    return 0;
}
