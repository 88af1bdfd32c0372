// The number filter: which of all combinations of six reds are candidates of a plan and meet it.
#pragma once

#include <cstdint>
#include <vector>

#include "base/RedSet.h"
#include "bets/BetAttributes.h"
#include "bets/BetListTable.h"
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
// A list asks its count of the lower reds once for many bets (BetListTable): what remains of it are
// the triples that fail then, and where none or all of them do, nothing is left to be added.
class BetFilter {
  public:
    // `columns` must outlive the filter, and the draw before stay the same meanwhile.
    BetFilter(const BetPlan& plan, RedSet previous, BetColumns& columns);

    std::int32_t CountCandidates() const;

    // For each condition of the plan the candidates that meet it by itself.
    std::vector<std::int32_t> CountByCondition() const;

    BetMatches Remaining() const;

  private:
    // An attribute that has to be looked up for each combination.
    struct ByteCondition {
        std::size_t index;  // in the plan
        const std::uint8_t* column;
        std::vector<BetByteTest::Interval> intervals;
    };
    // The conditions that must be met, or those within the tolerance.
    struct Conditions {
        std::vector<BetListCondition> lists;
        std::vector<ByteCondition> bytes;
    };

    class Walk;

    void Bind(const BetCondition& condition, std::size_t index, RedSet previous,
              BetColumns& columns);
    template <typename AtPair, typename AtPrefix>
    void ForEachPrefix(AtPair atPair, AtPrefix atPrefix) const;
    std::int32_t CountOf(const BetListCondition& list) const;
    std::int32_t CountOf(const ByteCondition& condition) const;
    static BetByteTest TestOf(const ByteCondition& condition, std::uint32_t place, int third);

    RedSet usable_;
    RedSet bankers_;
    int tolerance_;
    Conditions musts_;
    Conditions others_;
    std::vector<BetRow> outside_;  // by third red: the triples that no candidate has
};

}  // namespace ssq
