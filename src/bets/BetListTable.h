// Conditions of the form "so many reds out of a set", all of them asked at once.
//
// For each red one bit per condition tells whether its set has the red, so a few word operations
// count the lower reds of a prefix for 64 conditions; masks by third red and count then tell which
// conditions fail for all of the upper triples and which for some, and only the latter have a row
// to be added.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "base/RedSet.h"
#include "bets/BetPlan.h"
#include "bets/BetRows.h"

namespace ssq {

struct BetListCondition {
    std::size_t index;  // in the plan
    RedSet numbers;
    BetValues counts;  // that meet the condition
};

class BetListTable {
  public:
    static constexpr std::size_t kLowerCounts = 4;  // 0 to 3 of the lower reds

    // `usable`: the reds that bets are made of.
    BetListTable(std::span<const BetListCondition> lists, RedSet usable);

    // One way through the prefixes.
    class Walk {
      public:
        explicit Walk(const BetListTable& table);

        void SetPair(int first, int second);
        // Returns how many conditions fail for all triples above the third red, or `limit` as
        // soon as there are so many.
        int SetThird(int third, int limit);
        // After SetThird: the rows of those that fail for some.
        std::span<const BetRow* const> CollectRows();

      private:
        BetWord Counting(std::size_t word, std::size_t lowerCount) const;

        const BetListTable& table_;
        int third_ = 0;
        // The counts of the pair and of all lower reds in bit planes.
        std::vector<BetWord> pairOnes_, pairTwos_, ones_, twos_;
        std::vector<const BetRow*> rows_;
    };

  private:
    // One bit for each condition.
    using Mask = std::vector<BetWord>;

    void AddRows(const BetListCondition& list);
    void AddStates(const BetListCondition& list, std::size_t number, RedSet usable);

    std::size_t words_;
    std::array<Mask, RedSet::kLargest + 1> members_;
    // By third red and count among the lower reds.
    struct ByCount {
        std::array<Mask, kLowerCounts> someFail;
        std::array<Mask, kLowerCounts> allFail;
    };
    std::vector<ByCount> states_;
    // By condition and count among the lower reds: the triples that fail.
    std::vector<std::array<BetRow, kLowerCounts>> failing_;
};

}  // namespace ssq
