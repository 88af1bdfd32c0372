#include "chance/Chance.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/combinations.h"
#include "base/numbers.h"

namespace ssq {

namespace {

constexpr int kReds = RedSet::kLargest;
constexpr int kRedsInDraw = 6;

// Deviations of the normal distribution that leave 5 of 100 cases outside.
constexpr double kDeviations = 1.96;

// Below so many expected hits or misses a rule made for normal deviations errs too often.
constexpr double kLeastExpected = 5;

// The trials of one hit or miss each that would have the tally's variance.
double TrialsWorth(const Tally& tally) {
    const double chance = tally.Chance();
    return chance * (1 - chance) * tally.trials * tally.trials / tally.variance;
}

// Ways by number of balls drawn (rows) and weight so far.
class Ways {
  public:
    Ways(int drawn, int weights)
        : drawn_(drawn),
          weights_(weights),
          ways_(static_cast<std::size_t>(drawn + 1) * static_cast<std::size_t>(weights)) {
        At(0, 0) = 1;
    }

    double& At(int drawn, int weight) {
        return ways_[static_cast<std::size_t>(drawn) * static_cast<std::size_t>(weights_) +
                     static_cast<std::size_t>(weight)];
    }

    // From the largest number down, so that no ball of the class is counted twice.
    void Take(const BallClass& balls) {
        for (int drawn = drawn_; drawn >= 0; --drawn) {
            for (int taken = 1; taken <= std::min(drawn, balls.size); ++taken) {
                for (int weight = balls.weight; weight < weights_; ++weight) {
                    At(drawn, weight) +=
                        At(drawn - taken, weight - balls.weight) * Choose(balls.size, taken);
                }
            }
        }
    }

  private:
    int drawn_;
    int weights_;
    std::vector<double> ways_;
};

}  // namespace

double ChanceOfHits(int picked, int hits) {
    if (picked < 0 || picked > kReds || hits < 0 || hits > kRedsInDraw) return 0;
    return static_cast<double>(Choose(picked, hits)) *
           static_cast<double>(Choose(kReds - picked, kRedsInDraw - hits)) / kCombinationCount;
}

double ChanceOfHits(int picked, int low, int high) {
    double chance = 0;
    for (int hits = std::max(low, 0); hits <= std::min(high, kRedsInDraw); ++hits) {
        chance += ChanceOfHits(picked, hits);
    }
    return chance;
}

double ChanceOfAnyHit(int picked) {
    return 1 - ChanceOfHits(picked, 0);
}

// The mean of a count is the sum over k of the chance that it exceeds k.
double BestRateByLuck(int tries, int draws, double chance) {
    if (draws <= 0 || chance <= 0) return 0;
    if (chance >= 1) return 100;
    const double odds = std::log(chance) - std::log1p(-chance);
    double logTerm = draws * std::log1p(-chance);
    double upTo = 0;  // the chance of at most `hits`
    double best = 0;
    for (int hits = 0; hits < draws; ++hits) {
        upTo = std::min(upTo + std::exp(logTerm), 1.0);
        best += 1 - std::pow(upTo, tries);
        logTerm += std::log(draws - hits) - std::log(hits + 1) + odds;
    }
    return best / draws * 100;
}

std::string InPercent(double share) {
    return NumberText(Percent(share, 1)) + "%";
}

double ChanceOfWeight(std::span<const BallClass> classes, int balls, int drawn, double low,
                      double high) {
    int heaviest = 0;
    int others = balls;
    for (const BallClass& each : classes) {
        heaviest += each.weight;
        others -= each.size;
    }
    Ways ways(drawn, heaviest + 1);
    for (const BallClass& each : classes) ways.Take(each);
    double wanted = 0;
    for (int taken = 0; taken <= drawn; ++taken) {
        const double rest = Choose(others, drawn - taken);
        for (int weight = 0; weight <= heaviest; ++weight) {
            if (weight >= low && weight <= high) wanted += ways.At(taken, weight) * rest;
        }
    }
    return wanted / Choose(balls, drawn);
}

Odds OddsOfHit(double chance) {
    chance = std::clamp(chance, 0.0, 1.0);
    return {1, chance, chance * (1 - chance)};
}

Odds OddsOfReds(int picked) {
    const double share = static_cast<double>(picked) / kReds;
    // Drawing without putting back makes it smaller than that of separate trials.
    constexpr double kWithoutPuttingBack = static_cast<double>(kReds - kRedsInDraw) / (kReds - 1);
    return {kRedsInDraw, kRedsInDraw * share,
            kRedsInDraw * share * (1 - share) * kWithoutPuttingBack};
}

Odds OddsOfKills(int picked) {
    const Odds wrong = OddsOfReds(picked);
    return {static_cast<double>(picked), picked - wrong.mean, wrong.variance};
}

void Tally::Add(double drawScore, const Odds& odds) {
    ++draws;
    score += drawScore;
    trials += odds.trials;
    mean += odds.mean;
    variance += odds.variance;
}

Interval LuckBand(const Tally& tally) {
    const double reach = kDeviations * std::sqrt(tally.variance);
    return {tally.mean - reach, tally.mean + reach};
}

Interval LuckRange(const Tally& tally) {
    const Interval band = LuckBand(tally);
    return {band.low / tally.trials, band.high / tally.trials};
}

Interval OwnRange(const Tally& tally) {
    const double rate = tally.Rate();
    if (tally.variance <= 0) return {rate, rate};
    const double trials = TrialsWorth(tally);
    const double square = kDeviations * kDeviations / trials;
    const double middle = (rate + square / 2) / (1 + square);
    const double reach =
        kDeviations * std::sqrt(rate * (1 - rate) / trials + square / (4 * trials)) / (1 + square);
    return {middle - reach, middle + reach};
}

Verdict VerdictOf(const Tally& tally) {
    if (tally.trials <= 0) return Verdict::kTooFew;
    const double chance = tally.Chance();
    if (tally.variance > 0 && TrialsWorth(tally) * std::min(chance, 1 - chance) < kLeastExpected) {
        return Verdict::kTooFew;
    }
    constexpr double kRounding = 1e-9;  // of the sums
    if (std::abs(tally.score - tally.mean) < kRounding) return Verdict::kInside;
    const Interval band = LuckBand(tally);
    if (tally.score > band.high) return Verdict::kHigh;
    return tally.score < band.low ? Verdict::kLow : Verdict::kInside;
}

std::string VerdictText(Verdict verdict) {
    switch (verdict) {
        case Verdict::kInside:
            return "看不出差别";
        case Verdict::kHigh:
            return "这次偏高，换一段期数再测一次更可靠";
        case Verdict::kLow:
            return "这次偏低";
        case Verdict::kTooFew:
            break;
    }
    return "期数还少，看不出高低";
}

}  // namespace ssq
