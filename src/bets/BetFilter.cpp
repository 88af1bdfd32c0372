#include "bets/BetFilter.h"

#include <array>
#include <bit>
#include <utility>

#include "base/combinations.h"

namespace ssq {

namespace {

constexpr int kReds = RedSet::kLargest;
constexpr int kRedsInBet = 6;
constexpr int kUpperReds = 3;
constexpr int kThirdEnd = kReds - kUpperReds + 1;

std::size_t Index(int number) {
    return static_cast<std::size_t>(number);
}

// The first place of the bets with these lower reds.
std::uint32_t FirstPlaceOf(int a, int b, int c) {
    return static_cast<std::uint32_t>(CombinationRank({a, b, c, c + 1, c + 2, c + 3}));
}

std::vector<BetByteTest::Interval> IntervalsOf(const BetValues& values) {
    std::vector<BetByteTest::Interval> intervals;
    for (std::size_t low = 0; low < values.size(); ++low) {
        if (!values[low]) continue;
        std::size_t high = low;
        while (high + 1 < values.size() && values[high + 1]) ++high;
        intervals.push_back({BetBytes{} + static_cast<std::uint8_t>(low),
                             BetBytes{} + static_cast<std::uint8_t>(high - low)});
        low = high;
    }
    return intervals;
}

}  // namespace

void BetMatches::Add(std::uint32_t place, BetWord bits) {
    chunks_.push_back({place, bits});
    count_ += std::popcount(bits);
}

std::uint32_t BetMatches::FirstPlace() const {
    if (chunks_.empty()) return 0;
    return chunks_.front().place +
           static_cast<std::uint32_t>(std::countr_zero(chunks_.front().bits));
}

std::uint32_t BetMatches::LastPlace() const {
    if (chunks_.empty()) return 0;
    return chunks_.back().place +
           static_cast<std::uint32_t>(std::bit_width(chunks_.back().bits) - 1);
}

std::vector<std::uint32_t> BetMatches::Places() const {
    std::vector<std::uint32_t> places(static_cast<std::size_t>(count_));
    std::size_t next = 0;
    for (const Chunk& chunk : chunks_) {
        for (BetWord bits = chunk.bits; bits != 0; bits &= bits - 1) {
            places[next++] = chunk.place + static_cast<std::uint32_t>(std::countr_zero(bits));
        }
    }
    return places;
}

BetFilter::BetFilter(const BetPlan& plan, RedSet previous, BetColumns& columns)
    : usable_(plan.Usable()), bankers_(plan.bankers), tolerance_(plan.tolerance) {
    for (std::size_t i = 0; i < plan.conditions.size(); ++i) {
        Bind(plan.conditions[i], i, previous, columns);
    }
    outside_.resize(Index(kThirdEnd));
    for (int third = kUpperReds; third < kThirdEnd; ++third) {
        outside_[Index(third)] = TriplesOutside(third, usable_, bankers_);
    }
}

void BetFilter::Bind(const BetCondition& condition, std::size_t index, RedSet previous,
                     BetColumns& columns) {
    Conditions& conditions = condition.must ? musts_ : others_;
    if (condition.attribute < 0) {
        conditions.lists.push_back({index, condition.numbers, condition.values});
        return;
    }
    const BetAttribute& attribute = BetAttributes()[Index(condition.attribute)];
    if (attribute.counted != nullptr) {
        conditions.lists.push_back({index, attribute.counted(previous), condition.values});
    } else {
        conditions.bytes.push_back({index, columns.Of(condition.attribute, previous).data(),
                                    IntervalsOf(condition.values)});
    }
}

// Calls atPair(a, b) and then atPrefix(a, b, c) for the lower reds that candidates can have.
template <typename AtPair, typename AtPrefix>
void BetFilter::ForEachPrefix(AtPair atPair, AtPrefix atPrefix) const {
    // A banker may not be passed over.
    const auto next = [&](int from) {
        int red = from + 1;
        while (red < kThirdEnd && !usable_.Has(red)) ++red;
        return red;
    };
    const auto skips = [&](int red) { return bankers_.Has(red); };
    for (int a = next(0); a < kThirdEnd; a = skips(a) ? kThirdEnd : next(a)) {
        for (int b = next(a); b < kThirdEnd; b = skips(b) ? kThirdEnd : next(b)) {
            atPair(a, b);
            for (int c = next(b); c < kThirdEnd; c = skips(c) ? kThirdEnd : next(c)) {
                atPrefix(a, b, c);
            }
        }
    }
}

std::int32_t BetFilter::CountCandidates() const {
    return Choose(usable_.Without(bankers_).Count(), kRedsInBet - bankers_.Count());
}

std::vector<std::int32_t> BetFilter::CountByCondition() const {
    std::vector<std::int32_t> counts(musts_.lists.size() + musts_.bytes.size() +
                                     others_.lists.size() + others_.bytes.size());
    for (const Conditions* conditions : {&musts_, &others_}) {
        for (const auto& list : conditions->lists) counts[list.index] = CountOf(list);
        for (const auto& bytes : conditions->bytes) counts[bytes.index] = CountOf(bytes);
    }
    return counts;
}

// The reds that join the bankers are drawn from two urns: those of the list and the others.
std::int32_t BetFilter::CountOf(const BetListCondition& list) const {
    const RedSet urn = usable_.Without(bankers_);
    const int listed = urn.CountIn(list.numbers);
    const int drawn = kRedsInBet - bankers_.Count();
    std::int32_t count = 0;
    for (int hits = 0; hits <= drawn; ++hits) {
        if (!list.counts[Index(bankers_.CountIn(list.numbers) + hits)]) continue;
        count += Choose(listed, hits) * Choose(urn.Count() - listed, drawn - hits);
    }
    return count;
}

std::int32_t BetFilter::CountOf(const ByteCondition& condition) const {
    std::int32_t count = 0;
    const auto countPrefix = [&](int a, int b, int c) {
        const BetByteTest test = TestOf(condition, FirstPlaceOf(a, b, c), c);
        for (std::size_t lane = FirstLane(c); lane < kBetRowLanes; ++lane) {
            const BetLane passing = ~(outside_[Index(c)].Lane(lane) | test.Failing(lane));
            count += std::popcount(passing[0]) + std::popcount(passing[1]);
        }
    };
    ForEachPrefix([](int, int) {}, countPrefix);
    return count;
}

// The bytes of a prefix begin somewhere in its first lane; those in front are masked out.
BetByteTest BetFilter::TestOf(const ByteCondition& condition, std::uint32_t place, int third) {
    return {condition.intervals, condition.column + (place - 1) - FirstTriple(third) % kBetLaneBits,
            FirstLane(third)};
}

// One way through the prefixes.
class BetFilter::Walk {
  public:
    explicit Walk(const BetFilter& filter)
        : filter_(filter),
          mustTable_(filter.musts_.lists, filter.usable_),
          table_(filter.others_.lists, filter.usable_),
          musts_(mustTable_),
          others_(table_),
          mustTests_(filter.musts_.bytes.size()),
          tests_(filter.others_.bytes.size()) {}

    void AtPair(int a, int b) {
        musts_.SetPair(a, b);
        others_.SetPair(a, b);
    }

    void AtPrefix(int a, int b, int c) {
        if (musts_.SetThird(c, 1) > 0) return;
        const int spent = others_.SetThird(c, filter_.tolerance_ + 1);
        if (spent > filter_.tolerance_) return;
        const std::uint32_t place = FirstPlaceOf(a, b, c);
        const BetRowSum sum{&filter_.outside_[Index(c)],
                            musts_.CollectRows(),
                            TestsAt(filter_.musts_, place, c, mustTests_),
                            others_.CollectRows(),
                            TestsAt(filter_.others_, place, c, tests_),
                            filter_.tolerance_ - spent};
        std::array<BetLane, kBetRowLanes> passing;
        const std::size_t firstLane = FirstLane(c);
        sum.Passing(firstLane, passing.data());
        for (std::size_t lane = firstLane; lane < kBetRowLanes; ++lane) {
            for (std::size_t half = 0; half < 2; ++half) {
                const BetWord bits = passing[lane - firstLane][half];
                const std::size_t bit = lane * kBetLaneBits + half * kBetWordBits;
                const auto first = static_cast<std::uint32_t>(place + bit - FirstTriple(c));
                if (bits != 0) matches_.Add(first, bits);
            }
        }
    }

    BetMatches TakeMatches() { return std::move(matches_); }

  private:
    static std::span<const BetByteTest> TestsAt(const Conditions& conditions, std::uint32_t place,
                                                int third, std::vector<BetByteTest>& tests) {
        for (std::size_t i = 0; i < tests.size(); ++i) {
            tests[i] = TestOf(conditions.bytes[i], place, third);
        }
        return tests;
    }

    const BetFilter& filter_;
    BetListTable mustTable_;
    BetListTable table_;
    BetListTable::Walk musts_;
    BetListTable::Walk others_;
    std::vector<BetByteTest> mustTests_;
    std::vector<BetByteTest> tests_;
    BetMatches matches_;
};

BetMatches BetFilter::Remaining() const {
    Walk walk(*this);
    ForEachPrefix([&](int a, int b) { walk.AtPair(a, b); },
                  [&](int a, int b, int c) { walk.AtPrefix(a, b, c); });
    return walk.TakeMatches();
}

}  // namespace ssq
