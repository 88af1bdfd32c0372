#include "banker/PositionRates.h"

#include <bit>

#include "base/numbers.h"

namespace ssq {

struct PositionRates::Walk {
    std::vector<int> formula;
    const Visit& visit;
};

PositionRates::PositionRates(std::span<const DrawBalls> draws, int xxqs) : xxqs_(xxqs) {
    MarkHitRounds(draws, static_cast<std::size_t>(xxqs) + 1, hitRounds_);
}

bool PositionRates::ForEachFormula(int size, const Visit& visit) const {
    Walk walk{std::vector<int>(static_cast<std::size_t>(size)), visit};
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
    for (std::size_t next = from; next + left <= kCandidatePositions.size(); ++next) {
        walk.formula[depth] = kCandidatePositions[next];
        Rounds extended = hits;
        const Rounds& own = hitRounds_[static_cast<std::size_t>(kCandidatePositions[next])];
        for (std::size_t word = 0; word < extended.size(); ++word) extended[word] |= own[word];
        if (!Extend(walk, next + 1, depth + 1, extended)) return false;
    }
    return true;
}

}  // namespace ssq
