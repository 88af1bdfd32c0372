#include "banker/HighestRates.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "banker/PositionRates.h"
#include "base/numbers.h"

namespace ssq {

namespace {

using Word = std::uint64_t;
constexpr std::size_t kWordBits = 64;

// Views are scored by so many at a time. Their rounds fit into three words: the newest one's and
// up to 101 of the oldest.
constexpr std::size_t kBlock = kWordBits;
constexpr std::size_t kWords = 3;
static_assert(kBlock + kMostLearnPeriods <= kWords * kWordBits);

using Rounds = std::array<Word, kWords>;

struct Candidate {
    int hits = 0;
    std::array<std::uint8_t, kMostBankers> positions{};
};

// Scores every formula on the windows of a block. The window of view v are the rounds v to
// v + xxqs: from one view to the next one round leaves it and one joins.
class Block {
  public:
    Block(std::span<const DrawBalls> draws, std::size_t views, const BankerSettings& settings,
          int count)
        : views_(views),
          size_(static_cast<std::size_t>(settings.dmgs)),
          window_(static_cast<std::size_t>(settings.xxqs) + 1),
          count_(static_cast<std::size_t>(count)),
          best_(views) {
        MarkHitRounds(draws, views + window_ - 1, hitRounds_);
        for (std::size_t round = 0; round < window_; ++round) {
            first_[round / kWordBits] |= Word{1} << round % kWordBits;
        }
        needed_.fill(0);
    }

    std::span<const std::vector<Candidate>> Run() {
        Extend(0, 0, Rounds{});
        return best_;
    }

  private:
    void Extend(std::size_t from, std::size_t depth, const Rounds& hits) {
        const std::size_t left = size_ - depth;
        for (std::size_t next = from; next + left <= kCandidatePositions.size(); ++next) {
            const int position = kCandidatePositions[next];
            formula_[depth] = static_cast<std::uint8_t>(position);
            const Rounds& own = hitRounds_[static_cast<std::size_t>(position)];
            Rounds extended;
            for (std::size_t word = 0; word < kWords; ++word)
                extended[word] = hits[word] | own[word];
            if (left == 1) {
                Score(extended);
            } else {
                Extend(next + 1, depth + 1, extended);
            }
        }
    }

    void Score(const Rounds& rounds) {
        int hits = 0;
        for (std::size_t word = 0; word < kWords; ++word) {
            hits += std::popcount(rounds[word] & first_[word]);
        }
        Word leaving = rounds[0];
        Word joining = From(rounds, window_);
        for (std::size_t view = 0; view < views_; ++view) {
            if (hits >= needed_[view]) Take(view, hits);
            hits += static_cast<int>(joining & 1) - static_cast<int>(leaving & 1);
            leaving >>= 1;
            joining >>= 1;
        }
    }

    // The 64 rounds from `first` on, which is below 128.
    static Word From(const Rounds& rounds, std::size_t first) {
        const std::size_t word = first / kWordBits;
        const std::size_t bit = first % kWordBits;
        if (bit == 0) return rounds[word];
        return rounds[word] >> bit | rounds[word + 1] << (kWordBits - bit);
    }

    void Take(std::size_t view, int hits) {
        std::vector<Candidate>& best = best_[view];
        const auto place =
            std::upper_bound(best.begin(), best.end(), hits,
                             [](int own, const Candidate& other) { return own > other.hits; });
        best.insert(place, {hits, formula_});
        if (best.size() > count_) best.pop_back();
        if (best.size() == count_) needed_[view] = best.back().hits + 1;
    }

    std::size_t views_;
    std::size_t size_;
    std::size_t window_;
    std::size_t count_;
    PositionRounds<kWords> hitRounds_{};
    Rounds first_{};  // the window of view 0
    std::array<std::uint8_t, kMostBankers> formula_{};
    std::array<int, kBlock> needed_;  // hits that a formula needs to be kept
    std::vector<std::vector<Candidate>> best_;
};

}  // namespace

std::vector<std::vector<ScoredFormula>> HighestRates(std::span<const DrawBalls> draws,
                                                     std::size_t views,
                                                     const BankerSettings& settings, int count) {
    std::vector<std::vector<ScoredFormula>> all;
    all.reserve(views);
    for (std::size_t first = 0; first < views; first += kBlock) {
        Block block(draws.subspan(first), std::min(kBlock, views - first), settings, count);
        for (const std::vector<Candidate>& best : block.Run()) {
            std::vector<ScoredFormula>& formulas = all.emplace_back();
            for (const Candidate& each : best) {
                formulas.push_back(
                    {{each.positions.begin(), each.positions.begin() + settings.dmgs},
                     Percent(each.hits, settings.xxqs)});
            }
        }
    }
    return all;
}

}  // namespace ssq
