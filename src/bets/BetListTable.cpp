#include "bets/BetListTable.h"

#include <algorithm>
#include <bit>

namespace ssq {

namespace {

constexpr int kUpperReds = 3;
constexpr int kThirdEnd = RedSet::kLargest - kUpperReds + 1;

std::size_t Index(int number) {
    return static_cast<std::size_t>(number);
}

// The members above a red.
RedSet Above(RedSet set, int red) {
    return set.Minus(red).Plus(red);
}

}  // namespace

BetListTable::BetListTable(std::span<const BetListCondition> lists, RedSet usable)
    : words_((lists.size() + kBetWordBits - 1) / kBetWordBits), states_(Index(kThirdEnd)) {
    members_.fill(Mask(words_));
    for (ByCount& state : states_) {
        state.someFail.fill(Mask(words_));
        state.allFail.fill(Mask(words_));
    }
    failing_.reserve(lists.size());
    for (std::size_t i = 0; i < lists.size(); ++i) {
        AddRows(lists[i]);
        AddStates(lists[i], i, usable);
    }
}

void BetListTable::AddRows(const BetListCondition& list) {
    auto& rows = failing_.emplace_back();
    const auto byCount = TriplesByCount(list.numbers);
    for (std::size_t lower = 0; lower < kLowerCounts; ++lower) {
        for (std::size_t upper = 0; upper < byCount.size(); ++upper) {
            if (list.counts[lower + upper]) continue;
            for (std::size_t word = 0; word < kBetRowWords; ++word) {
                rows[lower].words[word] |= byCount[upper].words[word];
            }
        }
    }
}

void BetListTable::AddStates(const BetListCondition& list, std::size_t number, RedSet usable) {
    const std::size_t word = number / kBetWordBits;
    const BetWord bit = BetWord{1} << number % kBetWordBits;
    for (int red = 1; red <= RedSet::kLargest; ++red) {
        if (list.numbers.Has(red)) members_[Index(red)][word] |= bit;
    }
    for (int third = kUpperReds; third < kThirdEnd; ++third) {
        const RedSet upper = Above(usable, third);
        const int listed = upper.CountIn(list.numbers);
        const int fewest = std::max(0, kUpperReds - (upper.Count() - listed));
        const int most = std::min(kUpperReds, listed);
        for (int lower = 0; lower <= kUpperReds; ++lower) {
            int failing = 0;
            for (int count = fewest; count <= most; ++count) {
                if (!list.counts[Index(lower + count)]) ++failing;
            }
            ByCount& state = states_[Index(third)];
            if (failing == most - fewest + 1) {
                state.allFail[Index(lower)][word] |= bit;
            } else if (failing > 0) {
                state.someFail[Index(lower)][word] |= bit;
            }
        }
    }
}

BetListTable::Walk::Walk(const BetListTable& table)
    : table_(table),
      pairOnes_(table.words_),
      pairTwos_(table.words_),
      ones_(table.words_),
      twos_(table.words_),
      rows_(table.failing_.size()) {}

void BetListTable::Walk::SetPair(int first, int second) {
    const Mask& a = table_.members_[Index(first)];
    const Mask& b = table_.members_[Index(second)];
    for (std::size_t word = 0; word < table_.words_; ++word) {
        pairOnes_[word] = a[word] ^ b[word];
        pairTwos_[word] = a[word] & b[word];
    }
}

// The conditions of a word with so many of the lower reds.
BetWord BetListTable::Walk::Counting(std::size_t word, std::size_t lowerCount) const {
    const BetWord ones = (lowerCount & 1U) != 0 ? ones_[word] : ~ones_[word];
    const BetWord twos = (lowerCount & 2U) != 0 ? twos_[word] : ~twos_[word];
    return ones & twos;
}

int BetListTable::Walk::SetThird(int third, int limit) {
    third_ = third;
    const Mask& c = table_.members_[Index(third)];
    const ByCount& state = table_.states_[Index(third)];
    int failing = 0;
    for (std::size_t word = 0; word < table_.words_; ++word) {
        ones_[word] = pairOnes_[word] ^ c[word];
        twos_[word] = pairTwos_[word] | (pairOnes_[word] & c[word]);
        BetWord all = 0;
        for (std::size_t lower = 0; lower < kLowerCounts; ++lower) {
            all |= Counting(word, lower) & state.allFail[lower][word];
        }
        if (all == 0) continue;
        failing += std::popcount(all);
        if (failing >= limit) return limit;
    }
    return failing;
}

std::span<const BetRow* const> BetListTable::Walk::CollectRows() {
    const ByCount& state = table_.states_[Index(third_)];
    std::size_t count = 0;
    for (std::size_t word = 0; word < table_.words_; ++word) {
        for (std::size_t lower = 0; lower < kLowerCounts; ++lower) {
            BetWord some = Counting(word, lower) & state.someFail[lower][word];
            for (; some != 0; some &= some - 1) {
                const auto bit = static_cast<std::size_t>(std::countr_zero(some));
                rows_[count++] = &table_.failing_[word * kBetWordBits + bit][lower];
            }
        }
    }
    return {rows_.data(), count};
}

}  // namespace ssq
