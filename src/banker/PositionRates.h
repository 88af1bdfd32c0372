// Hit rates of position formulas on bit masks: one bit for each learning round.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "draws/BankerSettings.h"
#include "draws/Draw.h"

namespace ssq {

constexpr int kDrawsInWindow = 4;
constexpr int kPositions = kDrawsInWindow * kRedsInDraw;

class PositionRates {
  public:
    // `draws` are newest first. Counts the rounds 0 to xxqs, both included, in which at least one
    // ball at a formula's positions came out; each needs the four draws behind its target, so there
    // must be xxqs + 5 draws. Rates are over xxqs rounds, so that they can exceed 100.
    PositionRates(std::span<const DrawBalls> draws, int xxqs);

    // Called for each formula in dictionary order of its positions, with its rate in percent; false
    // ends the walk.
    using Visit = std::function<bool(std::span<const int> formula, double rate)>;

    // Walks all formulas of `size` positions out of `candidates`, which ascend. False when a visit
    // ended it.
    bool ForEachFormula(std::span<const int> candidates, int size, const Visit& visit) const;

  private:
    static constexpr int kWords = (kMostLearnPeriods + 1 + 63) / 64;
    using Rounds = std::array<std::uint64_t, kWords>;

    struct Walk;
    bool Extend(Walk& walk, std::size_t from, std::size_t depth, const Rounds& hits) const;

    int xxqs_;
    std::array<Rounds, kPositions> hitRounds_{};  // rounds in which the position's ball came out
};

}  // namespace ssq
