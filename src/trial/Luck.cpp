#include "trial/Luck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include "trial/History.h"
#include "trial/Method.h"

namespace ssq {

namespace {

// Any number would do; it is fixed so that the same settings always show the same luck.
constexpr std::uint32_t kLuckSeed = 20030223;

// Draws without past, each six equally likely.
History RandomHistory(std::mt19937& random, std::size_t size) {
    std::array<int, kReds> urn{};
    std::iota(urn.begin(), urn.end(), 1);
    std::vector<Draw> draws(size);
    for (Draw& draw : draws) {
        for (std::size_t ball = 0; ball < draw.balls.size(); ++ball) {
            // The remainder of 32 bits favours no ball by more than one in 100 million.
            std::swap(urn[ball], urn[ball + random() % (urn.size() - ball)]);
            draw.balls[ball] = urn[ball];
            draw.set.Add(urn[ball]);
        }
        std::ranges::sort(draw.balls);
    }
    return History(std::move(draws));
}

}  // namespace

std::optional<Luck> LuckOf(const TrialMethod& settings, std::span<const std::size_t> before,
                           TrialProgress& progress) {
    const std::unique_ptr<Method> method = MakeMethod(settings);
    std::mt19937 random(kLuckSeed);
    std::vector<double> rates;
    double shown = 0;
    int found = 0;
    for (int i = 0; i < kLuckHistories; ++i) {
        if (!progress.Step()) return std::nullopt;
        const std::size_t judged = static_cast<std::size_t>(i) * before.size() / kLuckHistories;
        const std::size_t size = method->DrawsUsed(before[judged]);
        const History history = RandomHistory(random, size);
        const auto choice = method->Choose(history.BeforeDraw(size), progress.run);
        if (!choice) return std::nullopt;
        rates.push_back(choice->rate);
        if (!choice->isTaken) continue;
        ++found;
        shown += choice->rate;
    }
    Luck luck;
    luck.best = std::accumulate(rates.begin(), rates.end(), 0.0) / kLuckHistories;
    double squares = 0;
    for (const double rate : rates) squares += (rate - luck.best) * (rate - luck.best);
    luck.spread = std::sqrt(squares / (kLuckHistories - 1));
    luck.found = static_cast<double>(found) / kLuckHistories;
    luck.shown = found > 0 ? shown / found : 0;
    return luck;
}

bool ChoosesBest(const TrialMethod& method) {
    return std::holds_alternative<BankerSettings>(method) ||
           std::holds_alternative<KillSettings>(method) ||
           std::holds_alternative<SingleFormulaTrial>(method);
}

}  // namespace ssq
