#include "chance/Chance.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <numeric>
#include <vector>

namespace ssq {
namespace {

// The plain count over all draws of a small game.
double PlainChance(const std::vector<BallClass>& classes, int balls, int drawn, double low,
                   double high) {
    int wanted = 0;
    int all = 0;
    for (unsigned draw = 0; draw < 1U << balls; ++draw) {
        if (std::popcount(draw) != drawn) continue;
        ++all;
        int weight = 0;
        int first = 0;
        for (const BallClass& each : classes) {
            const unsigned own = ((1U << each.size) - 1) << first;
            if ((draw & own) != 0) weight += each.weight;
            first += each.size;
        }
        if (weight >= low && weight <= high) ++wanted;
    }
    return static_cast<double>(wanted) / all;
}

TEST(Chance, OfHitsSumsToOneAndOfWeightsMatchesThePlainCount) {
    for (int picked = 0; picked <= 33; ++picked) {
        double sum = 0;
        double mean = 0;
        double square = 0;
        for (int hits = 0; hits <= 6; ++hits) {
            const double chance = ChanceOfHits(picked, hits);
            sum += chance;
            mean += hits * chance;
            square += hits * hits * chance;
        }
        const Odds reds = OddsOfReds(picked);
        const Odds kills = OddsOfKills(picked);
        EXPECT_NEAR(sum, 1, 1e-12);
        EXPECT_NEAR(reds.mean, mean, 1e-12);
        EXPECT_NEAR(reds.variance, square - mean * mean, 1e-12);
        EXPECT_NEAR(kills.mean, picked * 27 / 33.0, 1e-12);
        EXPECT_NEAR(kills.variance, reds.variance, 1e-12);
        const std::vector<BallClass> single(static_cast<std::size_t>(picked));
        EXPECT_NEAR(ChanceOfWeight(single, 33, 6, 1, 6), ChanceOfAnyHit(picked), 1e-12);
    }
    EXPECT_NEAR(ChanceOfHits(6, 0, 1), 0.7046, 5e-5);
    EXPECT_NEAR(ChanceOfAnyHit(6), 0.7327, 5e-5);
    EXPECT_EQ(ChanceOfHits(34, 0), 0);
    EXPECT_EQ(ChanceOfHits(5, 6), 0);

    const std::vector<std::vector<BallClass>> games = {{},
                                                       {{1, 2}, {1, 1}},
                                                       {{4, 1}, {3, 1}, {3, 2}},
                                                       {{2, 0}, {3, 3}, {1, 1}, {1, 1}},
                                                       {{11, 1}}};
    for (const auto& classes : games) {
        for (int drawn = 0; drawn <= 6; ++drawn) {
            for (int low = 0; low <= 3; ++low) {
                EXPECT_NEAR(ChanceOfWeight(classes, 11, drawn, low, low + 1.5),
                            PlainChance(classes, 11, drawn, low, low + 1.5), 1e-12);
            }
        }
    }
}

// Of three tries of two fair draws each the best has more than none in 63 cases of 64, and both in
// 37.
TEST(Chance, TheBestOfManyTriesShowsMore) {
    EXPECT_NEAR(BestRateByLuck(3, 2, 0.5), (63 + 37) / 64.0 / 2 * 100, 1e-12);
    EXPECT_EQ(BestRateByLuck(130, 50, 1), 100);
    EXPECT_EQ(BestRateByLuck(130, 0, 0.5), 0);
}

TEST(Chance, IntervalVerdictAndBandAgreeEverywhere) {
    // Draws of one chance, of two, and of counts; each with every score there can be.
    const std::vector<std::vector<Odds>> histories = {
        std::vector<Odds>(100, OddsOfHit(0.4639)),
        std::vector<Odds>(30, OddsOfHit(0.2)),
        {OddsOfHit(0.1), OddsOfHit(0.9), OddsOfHit(0.5), OddsOfHit(0.5)},
        std::vector<Odds>(20, OddsOfReds(18)),
        std::vector<Odds>(12, OddsOfKills(24))};
    int inside = 0;
    int outside = 0;
    for (const auto& history : histories) {
        Tally tally;
        for (const Odds& odds : history) tally.Add(0, odds);
        for (; tally.score <= tally.trials; ++tally.score) {
            const Interval own = OwnRange(tally);
            const Interval band = LuckBand(tally);
            const bool isInside = tally.score >= band.low && tally.score <= band.high;
            EXPECT_EQ(isInside, own.low <= tally.Chance() && tally.Chance() <= own.high)
                << tally.score << " of " << tally.trials;
            EXPECT_LE(own.low, tally.Rate() + 1e-12);
            EXPECT_GE(own.high, tally.Rate() - 1e-12);
            const Verdict verdict = VerdictOf(tally);
            if (verdict == Verdict::kTooFew) continue;
            EXPECT_EQ(isInside, verdict == Verdict::kInside);
            ++(isInside ? inside : outside);
        }
    }
    EXPECT_GT(inside, 20);
    EXPECT_GT(outside, 100);
}

TEST(Chance, GivesNoVerdictWhereHardlyAnythingIsExpected) {
    const auto verdict = [](int draws, double chance, double score) {
        Tally tally;
        for (int i = 0; i < draws; ++i) tally.Add(0, OddsOfHit(chance));
        tally.score = score;
        return VerdictOf(tally);
    };
    EXPECT_EQ(verdict(49, 0.1, 20), Verdict::kTooFew);
    EXPECT_EQ(verdict(51, 0.1, 20), Verdict::kHigh);
    EXPECT_EQ(verdict(51, 0.9, 20), Verdict::kLow);
    EXPECT_EQ(verdict(49, 0.9, 20), Verdict::kTooFew);
    EXPECT_EQ(verdict(1000, 1 + 1e-15, 1000), Verdict::kInside);  // certain
    EXPECT_EQ(verdict(1000, 0, 0), Verdict::kInside);
    EXPECT_EQ(verdict(0, 0.5, 0), Verdict::kTooFew);
    // 47 of 100 at 45.75 %, worked out by hand.
    Tally tally;
    for (int i = 0; i < 100; ++i) tally.Add(i < 47 ? 1 : 0, OddsOfHit(0.4575));
    EXPECT_NEAR(OwnRange(tally).low, 0.3753, 1e-3);
    EXPECT_NEAR(OwnRange(tally).high, 0.567, 1e-3);
    EXPECT_NEAR(LuckRange(tally).low, 0.36, 1e-3);
}

}  // namespace
}  // namespace ssq
