#include "bets/BetFilter.h"

#include <algorithm>
#include <bit>

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

// The members above a red.
RedSet Above(RedSet set, int red) {
    return set.Minus(red).Plus(red);
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
    for (const bool must : {true, false}) {
        for (std::size_t i = 0; i < plan.conditions.size(); ++i) {
            const BetCondition& condition = plan.conditions[i];
            if (condition.must != must) continue;
            if (condition.attribute < 0) {
                lists_.push_back({i, condition.numbers, condition.values});
                continue;
            }
            const BetAttribute& attribute = BetAttributes()[Index(condition.attribute)];
            if (attribute.counted != nullptr) {
                lists_.push_back({i, attribute.counted(previous), condition.values});
            } else {
                bytes_.push_back({i, columns.Of(condition.attribute, previous).data(),
                                  IntervalsOf(condition.values)});
            }
        }
        if (must) {
            mustLists_ = lists_.size();
            mustBytes_ = bytes_.size();
        }
    }
    outside_.resize(Index(kThirdEnd));
    for (int third = kUpperReds; third < kThirdEnd; ++third) {
        outside_[Index(third)] = TriplesOutside(third, usable_, bankers_);
    }
    MakeLists();
}

void BetFilter::MakeLists() {
    failing_.resize(lists_.size());
    states_.resize(StateIndex(kThirdEnd, 0));
    members_.resize(Index(kReds + 1) * lists_.size());
    for (std::size_t i = 0; i < lists_.size(); ++i) {
        const ListCondition& list = lists_[i];
        const auto byCount = TriplesByCount(list.numbers);
        for (std::size_t lower = 0; lower < kLowerCounts; ++lower) {
            for (std::size_t upper = 0; upper < byCount.size(); ++upper) {
                if (list.counts[lower + upper]) continue;
                for (std::size_t word = 0; word < kBetRowWords; ++word) {
                    failing_[i][lower].words[word] |= byCount[upper].words[word];
                }
            }
        }
        for (int third = kUpperReds; third < kThirdEnd; ++third) {
            for (int lower = 0; lower <= kUpperReds; ++lower) {
                states_[StateIndex(third, lower) + i] = StateOf(list, third, lower);
            }
        }
        for (int red = 1; red <= kReds; ++red) {
            members_[Index(red) * lists_.size() + i] = list.numbers.Has(red) ? 1 : 0;
        }
    }
}

BetFilter::State BetFilter::StateOf(const ListCondition& list, int third, int lowerCount) const {
    const RedSet upper = Above(usable_, third);
    const int listed = upper.CountIn(list.numbers);
    const int others = upper.Count() - listed;
    bool some = false;
    bool all = true;
    for (int count = std::max(0, kUpperReds - others); count <= std::min(kUpperReds, listed);
         ++count) {
        const bool fails = !list.counts[Index(lowerCount + count)];
        some = some || fails;
        all = all && fails;
    }
    return all ? kAllFail : some ? kSomeFail : kNoneFails;
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
    std::vector<std::int32_t> counts(lists_.size() + bytes_.size());
    for (const ListCondition& list : lists_) counts[list.index] = CountOf(list);
    for (const ByteCondition& condition : bytes_) counts[condition.index] = CountOf(condition);
    return counts;
}

// The reds that join the bankers are drawn from two urns: those of the list and the others.
std::int32_t BetFilter::CountOf(const ListCondition& list) const {
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

// One walk over the prefixes: what changes with the lower reds.
struct BetFilter::Walk {
    explicit Walk(const BetFilter& owner)
        : filter(owner),
          pairCounts(owner.lists_.size()),
          rows(owner.lists_.size() + 1),
          tests(owner.bytes_.size()) {}

    void AtPair(int a, int b) {
        const std::uint8_t* first = Members(a);
        const std::uint8_t* second = Members(b);
        for (std::size_t i = 0; i < pairCounts.size(); ++i) {
            pairCounts[i] = static_cast<std::uint8_t>(first[i] + second[i]);
        }
    }

    void AtPrefix(int a, int b, int c) {
        BetRowSum sum;
        int spent = 0;
        const std::size_t mustRows = Collect(c, 0, filter.mustLists_, 0, 0, spent);
        if (mustRows == kFailed) return;
        const std::size_t end =
            Collect(c, filter.mustLists_, filter.lists_.size(), mustRows, filter.tolerance_, spent);
        if (end == kFailed) return;
        const std::uint32_t place = FirstPlaceOf(a, b, c);
        for (std::size_t i = 0; i < tests.size(); ++i) {
            tests[i] = TestOf(filter.bytes_[i], place, c);
        }
        sum.outside = &filter.outside_[Index(c)];
        sum.mustRows = {rows.data(), mustRows};
        sum.rows = {rows.data() + mustRows, end - mustRows};
        sum.mustBytes = {tests.data(), filter.mustBytes_};
        sum.bytes = {tests.data() + filter.mustBytes_, tests.size() - filter.mustBytes_};
        sum.tolerance = filter.tolerance_ - spent;
        std::array<BetLane, kBetRowLanes> passing;
        const std::size_t firstLane = FirstLane(c);
        sum.Passing(firstLane, passing.data());
        AddMatches(place - static_cast<std::uint32_t>(FirstTriple(c)), firstLane, passing);
    }

    static constexpr std::size_t kFailed = ~std::size_t{0};

    // Puts the rows of those lists of [begin, end) that fail for some triples at `rows` from `row`
    // on and returns where they end; kFailed when more than `tolerance` fail for all triples.
    std::size_t Collect(int c, std::size_t begin, std::size_t end, std::size_t row, int tolerance,
                        int& spent) {
        const std::uint8_t* third = Members(c);
        const std::uint8_t* states = &filter.states_[filter.StateIndex(c, 0)];
        const std::size_t lists = filter.lists_.size();
        for (std::size_t i = begin; i < end; ++i) {
            const std::size_t lower = pairCounts[i] + third[i];
            const std::uint8_t state = states[lower * lists + i];
            rows[row] = &filter.failing_[i][lower];
            row += state == kSomeFail ? 1 : 0;
            if (state == kAllFail && ++spent > tolerance) return kFailed;
        }
        return row;
    }

    void AddMatches(std::uint32_t placeOfBit0, std::size_t firstLane,
                    const std::array<BetLane, kBetRowLanes>& passing) {
        for (std::size_t lane = firstLane; lane < kBetRowLanes; ++lane) {
            for (std::size_t half = 0; half < 2; ++half) {
                const BetWord bits = passing[lane - firstLane][half];
                if (bits == 0) continue;
                const std::size_t bit = lane * kBetLaneBits + half * kBetWordBits;
                matches.Add(placeOfBit0 + static_cast<std::uint32_t>(bit), bits);
            }
        }
    }

    const std::uint8_t* Members(int red) const {
        return filter.members_.data() + Index(red) * filter.lists_.size();
    }

    const BetFilter& filter;
    std::vector<std::uint8_t> pairCounts;
    std::vector<const BetRow*> rows;
    std::vector<BetByteTest> tests;
    BetMatches matches;
};

BetMatches BetFilter::Remaining() const {
    Walk walk(*this);
    ForEachPrefix([&](int a, int b) { walk.AtPair(a, b); },
                  [&](int a, int b, int c) { walk.AtPrefix(a, b, c); });
    return std::move(walk.matches);
}

}  // namespace ssq
