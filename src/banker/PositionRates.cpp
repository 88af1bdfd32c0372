#include "banker/PositionRates.h"

#include <bit>

#include "base/RedSet.h"
#include "base/numbers.h"

namespace ssq {

struct PositionRates::Walk {
    std::span<const int> candidates;
    std::vector<int> formula;
    const Visit& visit;
};

PositionRates::PositionRates(std::span<const DrawBalls> draws, int xxqs) : xxqs_(xxqs) {
    for (int round = 0; round <= xxqs; ++round) {
        const auto target = static_cast<std::size_t>(round);
        RedSet drawn;
        for (const int ball : draws[target]) drawn.Add(ball);
        for (std::size_t position = 0; position < kPositions; ++position) {
            const DrawBalls& source = draws[target + 1 + position / kRedsInDraw];
            if (drawn.Has(source[position % kRedsInDraw])) {
                hitRounds_[position][target / 64] |= std::uint64_t{1} << (target % 64);
            }
        }
    }
}

bool PositionRates::ForEachFormula(std::span<const int> candidates, int size,
                                   const Visit& visit) const {
    Walk walk{candidates, std::vector<int>(static_cast<std::size_t>(size)), visit};
    return Extend(walk, 0, 0, Rounds{});
}

bool PositionRates::Extend(Walk& walk, std::size_t from, std::size_t depth,
                           const Rounds& hits) const {
    const std::size_t left = walk.formula.size() - depth;
    if (left == 0) {
        int count = 0;
        for (const std::uint64_t word : hits) count += std::popcount(word);
        return walk.visit(walk.formula, Percent(count, xxqs_));
    }
    for (std::size_t next = from; next + left <= walk.candidates.size(); ++next) {
        walk.formula[depth] = walk.candidates[next];
        Rounds extended = hits;
        const Rounds& own = hitRounds_[static_cast<std::size_t>(walk.candidates[next])];
        for (std::size_t word = 0; word < extended.size(); ++word) extended[word] |= own[word];
        if (!Extend(walk, next + 1, depth + 1, extended)) return false;
    }
    return true;
}

}  // namespace ssq
