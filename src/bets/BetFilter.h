// The number filter: which of all combinations of six reds are candidates of a plan and meet it.
#pragma once

#include <cstdint>
#include <vector>

#include "base/RedSet.h"
#include "bets/BetAttributes.h"
#include "bets/BetPlan.h"
#include "bets/BetRows.h"

namespace ssq {

// The combinations that remain of a plan.
class BetMatches {
  public:
    std::int32_t Count() const { return count_; }
    // 0 when nothing remains.
    std::uint32_t FirstPlace() const;
    std::uint32_t LastPlace() const;
    // All places, ascending.
    std::vector<std::uint32_t> Places() const;

    // Bit i stands for place `place` + i; places are added in ascending order.
    void Add(std::uint32_t place, BetWord bits);

  private:
    struct Chunk {
        std::uint32_t place;
        BetWord bits;
    };
    std::vector<Chunk> chunks_;
    std::int32_t count_ = 0;
};

// A plan without errors bound to the draw that 重号 and 边号 look back to. Binding is cheap and
// going through all combinations a matter of milliseconds, so that it can be done at each key.
//
// A bet is three lower reds, walked over, and three upper ones, which are bits of a row (BetRows).
// A list asks its count of the lower reds once for many bets: what remains of it are the triples
// that fail then, and where none or all of them do, nothing is left to be added.
class BetFilter {
  public:
    // `columns` must outlive the filter, and the draw before stay the same meanwhile.
    BetFilter(const BetPlan& plan, RedSet previous, BetColumns& columns);

    std::int32_t CountCandidates() const;

    // For each condition of the plan the candidates that meet it by itself.
    std::vector<std::int32_t> CountByCondition() const;

    BetMatches Remaining() const;

  private:
    static constexpr std::size_t kLowerCounts = 4;  // 0 to 3 of the lower reds

    // So many reds out of a set.
    struct ListCondition {
        std::size_t index;  // in the plan
        RedSet numbers;
        BetValues counts;
    };
    // An attribute that has to be looked up for each combination.
    struct ByteCondition {
        std::size_t index;
        const std::uint8_t* column;
        std::vector<BetByteTest::Interval> intervals;
    };
    // What the triples above a third red say of a list when the lower reds are known.
    enum State : std::uint8_t { kNoneFails, kSomeFail, kAllFail };

    struct Walk;

    void MakeLists();
    State StateOf(const ListCondition& list, int third, int lowerCount) const;
    template <typename AtPair, typename AtPrefix>
    void ForEachPrefix(AtPair atPair, AtPrefix atPrefix) const;
    std::int32_t CountOf(const ListCondition& list) const;
    std::int32_t CountOf(const ByteCondition& condition) const;
    static BetByteTest TestOf(const ByteCondition& condition, std::uint32_t place, int third);
    std::size_t StateIndex(int third, int lowerCount) const {
        return (static_cast<std::size_t>(third) * kLowerCounts +
                static_cast<std::size_t>(lowerCount)) *
               lists_.size();
    }

    RedSet usable_;
    RedSet bankers_;
    int tolerance_;
    // First the conditions that must be met, then the others.
    std::vector<ListCondition> lists_;
    std::vector<ByteCondition> bytes_;
    std::size_t mustLists_ = 0;
    std::size_t mustBytes_ = 0;

    std::vector<BetRow> outside_;  // by third red: the triples that no candidate has
    // By list and count among the lower reds: the triples that fail.
    std::vector<std::array<BetRow, kLowerCounts>> failing_;
    std::vector<std::uint8_t> states_;   // by third red, count among the lower reds and list
    std::vector<std::uint8_t> members_;  // by red and list: 1 where the list has it
};

}  // namespace ssq
