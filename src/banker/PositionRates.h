// Hit rates of position formulas on bit masks: one bit for each learning round.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "base/RedSet.h"
#include "draws/BankerSettings.h"
#include "draws/Draw.h"

namespace ssq {

constexpr int kDrawsInWindow = 4;
constexpr int kPositions = kDrawsInWindow * kRedsInDraw;

// The positions that formulas are made of. Position 22 is left out on purpose.
inline constexpr std::array<int, kPositions - 1> kCandidatePositions = {
    0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 23};

// For each position one bit for each learning round in which its ball came out.
template <std::size_t Words>
using PositionRounds = std::array<std::array<std::uint64_t, Words>, kPositions>;

// Marks the rounds 0 to `rounds` - 1. `draws` are newest first; round r aims at draws[r] with the
// four draws behind it, so there must be four draws more than rounds.
template <std::size_t Words>
void MarkHitRounds(std::span<const DrawBalls> draws, std::size_t rounds,
                   PositionRounds<Words>& marks) {
    for (std::size_t round = 0; round < rounds; ++round) {
        RedSet drawn;
        for (const int ball : draws[round]) drawn.Add(ball);
        for (std::size_t position = 0; position < kPositions; ++position) {
            const DrawBalls& source = draws[round + 1 + position / kRedsInDraw];
            if (drawn.Has(source[position % kRedsInDraw])) {
                marks[position][round / 64] |= std::uint64_t{1} << (round % 64);
            }
        }
    }
}

class PositionRates {
  public:
    // `draws` are newest first. Counts the rounds 0 to xxqs, both included, in which at least one
    // ball at a formula's positions came out; each needs the four draws behind its target, so there
    // must be xxqs + 5 draws. Rates are over xxqs rounds, so that they can exceed 100.
    PositionRates(std::span<const DrawBalls> draws, int xxqs);

    // Called for each formula in dictionary order of its positions, with its rate in percent; false
    // ends the walk.
    using Visit = std::function<bool(std::span<const int> formula, double rate)>;

    // Walks all formulas of `size` positions. False when a visit ended it.
    bool ForEachFormula(int size, const Visit& visit) const;

  private:
    static constexpr int kWords = (kMostLearnPeriods + 1 + 63) / 64;
    using Rounds = std::array<std::uint64_t, kWords>;

    struct Walk;
    bool Extend(Walk& walk, std::size_t from, std::size_t depth, const Rounds& hits) const;

    int xxqs_;
    PositionRounds<kWords> hitRounds_{};
};

}  // namespace ssq
