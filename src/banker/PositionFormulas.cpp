#include "banker/PositionFormulas.h"

#include <algorithm>
#include <array>

#include "banker/PositionRates.h"
#include "base/numbers.h"

namespace ssq {

namespace {

// Position 22 is left out on purpose: no formula ever uses it.
constexpr std::array<int, 23> kCandidates = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                                             12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 23};

// Percent that a formula must reach, by its number of bankers from 1 to 5.
constexpr std::array<double, kMostBankers> kThresholds = {30, 40, 50, 70, 80};

double CombinationCount(std::size_t items, int size) {
    double count = 1;
    for (int i = 0; i < size; ++i) count = count * static_cast<double>(items - i) / (i + 1);
    return count;
}

// Visits every formula that reaches the threshold; false when a step ended the walk.
bool ForEachGood(std::span<const DrawBalls> before, const BankerSettings& settings,
                 const LearnStep& step, const PositionRates::Visit& visit) {
    const double threshold = kThresholds[static_cast<std::size_t>(settings.dmgs - 1)];
    const double total = CombinationCount(kCandidates.size(), settings.dmgs);
    double done = 0;
    return PositionRates(before, settings.xxqs)
        .ForEachFormula(kCandidates, settings.dmgs, [&](std::span<const int> formula, double rate) {
            if (step && !step(done++, total)) return false;
            return rate < threshold || visit(formula, rate);
        });
}

// Keeps the `count` best of what is offered.
void Offer(std::vector<ScoredFormula>& best, std::size_t count, std::span<const int> formula,
           double rate) {
    if (best.size() == count && (count == 0 || rate <= best.back().rate)) return;
    const auto place =
        std::upper_bound(best.begin(), best.end(), rate,
                         [](double own, const ScoredFormula& other) { return own > other.rate; });
    best.insert(place, {{formula.begin(), formula.end()}, rate});
    if (best.size() > count) best.pop_back();
}

}  // namespace

std::string FormulaText(const PositionFormula& formula) {
    return NumberListText(formula);
}

std::optional<PositionFormula> ParseFormula(std::string_view text) {
    auto positions = ParseNumberList(text, 0, kPositions - 1);
    const bool fits = positions && positions->size() <= kMostBankers &&
                      std::is_sorted(positions->begin(), positions->end(), std::less_equal<>());
    return fits ? positions : std::nullopt;
}

std::vector<int> BallsAt(const PositionFormula& formula, std::span<const DrawBalls> before) {
    std::vector<int> balls;
    balls.reserve(formula.size());
    for (const int position : formula) {
        const auto place = static_cast<std::size_t>(position);
        balls.push_back(before[place / kRedsInDraw][place % kRedsInDraw]);
    }
    return balls;
}

bool CanLearn(std::span<const DrawBalls> before, const BankerSettings& settings) {
    return settings.dmgs >= 1 && settings.dmgs <= kMostBankers && settings.xxqs >= 1 &&
           settings.xxqs <= kMostLearnPeriods &&
           before.size() >= static_cast<std::size_t>(settings.xxqs) + 1 + kDrawsInWindow;
}

std::optional<std::vector<ScoredFormula>> GoodFormulas(std::span<const DrawBalls> before,
                                                       const BankerSettings& settings,
                                                       const LearnStep& step) {
    std::vector<ScoredFormula> good;
    const bool finished = ForEachGood(before, settings, step, [&](auto formula, double rate) {
        good.push_back({{formula.begin(), formula.end()}, rate});
        return true;
    });
    if (!finished) return std::nullopt;
    return good;
}

std::vector<ScoredFormula> BestOf(std::span<const ScoredFormula> formulas, int count) {
    std::vector<ScoredFormula> best;
    for (const ScoredFormula& formula : formulas) {
        Offer(best, static_cast<std::size_t>(count), formula.positions, formula.rate);
    }
    return best;
}

std::vector<ScoredFormula> BestFormulas(std::span<const DrawBalls> before,
                                        const BankerSettings& settings, int count) {
    std::vector<ScoredFormula> best;
    if (!CanLearn(before, settings)) return best;
    ForEachGood(before, settings, {}, [&](auto formula, double rate) {
        Offer(best, static_cast<std::size_t>(count), formula, rate);
        return true;
    });
    return best;
}

}  // namespace ssq
