#include "banker/PositionFormulas.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "banker/HighestRates.h"
#include "banker/PositionRates.h"
#include "base/numbers.h"

namespace ssq {

namespace {

// Percent that a formula must reach, by its number of bankers from 1 to 5.
constexpr std::array<double, kMostBankers> kThresholds = {30, 40, 50, 70, 80};

double CombinationCount(std::size_t items, int size) {
    double count = 1;
    for (int i = 0; i < size; ++i) count = count * static_cast<double>(items - i) / (i + 1);
    return count;
}

}  // namespace

double GoodRate(int dmgs) {
    return kThresholds[static_cast<std::size_t>(dmgs - 1)];
}

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
    const double threshold = GoodRate(settings.dmgs);
    const double total = CombinationCount(kCandidatePositions.size(), settings.dmgs);
    double done = 0;
    std::vector<ScoredFormula> good;
    const bool finished =
        PositionRates(before, settings.xxqs)
            .ForEachFormula(settings.dmgs, [&](std::span<const int> formula, double rate) {
                if (step && !step(done++, total)) return false;
                if (rate >= threshold) good.push_back({{formula.begin(), formula.end()}, rate});
                return true;
            });
    if (!finished) return std::nullopt;
    return good;
}

std::vector<ScoredFormula> BestOf(std::span<const ScoredFormula> formulas, int count) {
    std::vector<ScoredFormula> best(formulas.begin(), formulas.end());
    std::ranges::stable_sort(best, std::ranges::greater(), &ScoredFormula::rate);
    if (best.size() > static_cast<std::size_t>(count)) best.resize(static_cast<std::size_t>(count));
    return best;
}

std::vector<ScoredFormula> BestFormulas(std::span<const DrawBalls> before,
                                        const BankerSettings& settings, int count) {
    if (!CanLearn(before, settings)) return {};
    std::vector<ScoredFormula> best = std::move(HighestRates(before, 1, settings, count).front());
    std::erase_if(
        best, [&](const ScoredFormula& formula) { return formula.rate < GoodRate(settings.dmgs); });
    return best;
}

}  // namespace ssq
