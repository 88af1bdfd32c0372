// The exhaustive search for the set of one to four shifting formulas that would have killed most
// safely. Pure: hit counts in, best set out.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "base/RedSet.h"
#include "formulas/BMHZ.h"

namespace ssq {

// How many of the six numbers of each of the 130 formulas came out, draw by draw; draw 0 is the
// newest one.
class HitMatrix {
  public:
    explicit HitMatrix(int draws);

    int draws() const { return draws_; }
    int hits(int draw, int formula) const { return hits_[At(draw, formula)]; }
    void Set(int draw, int formula, int hits) {
        hits_[At(draw, formula)] = static_cast<std::int16_t>(hits);
    }

  private:
    static std::size_t At(int draw, int formula) {
        return static_cast<std::size_t>(draw) * kFormulaCount + static_cast<std::size_t>(formula);
    }

    int draws_;
    std::vector<std::int16_t> hits_;
};

// The hits of all formulas on the newest `draws` of the draws `before`, which are newest first and
// at least kFormulaDraws more.
HitMatrix HitsOf(std::span<const RedSet> before, int draws);

inline constexpr int kLargestKillSet = 4;

struct KillGoal {
    int setSize = 1;     // formulas in a set, 1 to kLargestKillSet
    int rc = 0;          // how many of them may each have one hit on a draw that still passes
    double setRate = 0;  // lowest rate that is taken, percent
};

struct KillSearchResult {
    bool finished = true;       // false when a step ended the search
    std::vector<int> formulas;  // ascending FormulaIndex values; empty when no set was taken
    double rate = 0;            // percent of the draws passed, two decimals
};

// How many sets of that size the 130 formulas have.
std::int64_t KillSetCount(int setSize);

// Told now and then how many sets have been dealt with; answers false to end the search.
using KillSearchStep = std::function<bool(std::int64_t setsDone)>;

// Scores every set: a draw passes when no formula of the set has two or more hits and at most
// `rc` of them have any. Taken is the set of the highest rate that is above 0 and not below
// `setRate`; among equal rates the lowest in lexicographic order of its indices.
KillSearchResult FindBestKillSet(const HitMatrix& matrix, const KillGoal& goal,
                                 const KillSearchStep& step);

}  // namespace ssq
