// Hit rates of position formulas on bit masks: one bit for each learning round.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ssq {

constexpr int kDrawsInWindow = 4;
constexpr int kPositions = 24;  // six balls of each draw in the window

using DrawBalls = std::array<int, 6>;

class PositionRates {
  public:
    // `draws` are newest first. Counts the rounds 0 to xxqs, both included; each needs the four
    // draws behind its target, so there must be xxqs + 5 draws.
    PositionRates(std::span<const DrawBalls> draws, int xxqs);

    // Called for each formula in dictionary order of its positions, with its rate in percent; false
    // ends the walk.
    using Visit = std::function<bool(std::span<const int> formula, double rate)>;

    // Walks all formulas of `size` positions out of `candidates`, which ascend. False when a visit
    // ended it.
    bool ForEachFormula(std::span<const int> candidates, int size, const Visit& visit) const;

  private:
    static constexpr int kLargestLearning = 100;
    static constexpr int kWords = (kLargestLearning + 1 + 63) / 64;
    using Rounds = std::array<std::uint64_t, kWords>;

    struct Walk;
    bool Extend(Walk& walk, std::size_t from, std::size_t depth, const Rounds& hits) const;

    int xxqs_;
    std::array<Rounds, kPositions> hitRounds_{};  // rounds in which the position's ball came out
};

}  // namespace ssq
