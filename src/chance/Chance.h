// What as many numbers picked at random would hit, and how far luck alone carries a count of hits.
// Each six of 33 reds, and each of 16 blues, is equally likely and independent of the past: which
// numbers were picked, and how, is of no account.
#pragma once

#include <span>
#include <string>

namespace ssq {

// The chance that `hits` of `picked` (0 to 33) different reds are drawn, that `low` to `high` of
// them are, and that any is.
double ChanceOfHits(int picked, int hits);
double ChanceOfHits(int picked, int low, int high);
double ChanceOfAnyHit(int picked);

// The mean rate in percent of the best of `tries` independent tries of so many draws, each of which
// hits every draw with this chance.
double BestRateByLuck(int tries, int draws, double chance);

// "45.75%".
std::string InPercent(double share);

// Balls that together give `weight`, when at least one of them is drawn.
struct BallClass {
    int size = 1;
    int weight = 1;  // not negative
};

// The share of the ways to draw `drawn` of `balls` balls on which the weights given add up to
// `low` to `high`. The classes share no ball and together have no more than there are.
double ChanceOfWeight(std::span<const BallClass> classes, int balls, int drawn, double low,
                      double high);

// What chance gives to the score of one draw: out of so many trials, with this mean and variance.
struct Odds {
    double trials = 0;
    double mean = 0;
    double variance = 0;
};

// The score is 1 with this chance, else 0. What rounding carries past 0 or 1 is taken off.
Odds OddsOfHit(double chance);
// The score is how many of the six reds drawn are among `picked` different ones.
Odds OddsOfReds(int picked);
// The score is how many of `picked` different reds are not drawn.
Odds OddsOfKills(int picked);

// Sums over draws.
struct Tally {
    int draws = 0;
    double score = 0;
    double trials = 0;
    double mean = 0;
    double variance = 0;

    void Add(double drawScore, const Odds& odds);

    // Shares of the trials; not a number while there are none.
    double Rate() const { return score / trials; }
    double Chance() const { return mean / trials; }
};

struct Interval {
    double low = 0;
    double high = 0;
};

// Where chance alone leaves the score in 95 of 100 cases.
Interval LuckBand(const Tally& tally);
// The same as rates.
Interval LuckRange(const Tally& tally);

// The rates that go with what was scored, by Wilson's rule on as many trials as the variance is
// worth. The chance rate lies inside exactly when the score lies inside the LuckBand.
Interval OwnRange(const Tally& tally);

enum class Verdict {
    kTooFew,  // fewer than five hits or misses to be expected: both rulers fail there, but for what
              // is certain
    kInside,
    kHigh,
    kLow,
};
Verdict VerdictOf(const Tally& tally);

// "看不出差别" and the like, without a full stop.
std::string VerdictText(Verdict verdict);

}  // namespace ssq
