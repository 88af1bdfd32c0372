#include "charts/dapan_fx.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"

namespace ssq {

namespace {

// The x whose neighbour x+d, or x-d, is in the set.
RedSet WithRight(RedSet set, int d = 1) {
    return set.Minus(d);
}
RedSet WithLeft(RedSet set, int d = 1) {
    return set.Plus(d);
}

// The x between two members that are each `d` away.
RedSet Between(RedSet set, int d = 1) {
    return WithLeft(set, d) & WithRight(set, d);
}

RedSet ToSet(RedSequence numbers) {
    RedSet set;
    for (const int number : numbers) set.Add(number);
    return set;
}

int CountDifference(RedSequence list, int difference) {
    int count = 0;
    for (std::size_t i = 1; i < list.size(); ++i) {
        if (std::abs(list[i] - list[i - 1]) == difference) ++count;
    }
    return count;
}

// Bit n for tail digit n.
std::uint64_t Tails(RedSet set) {
    constexpr std::uint64_t kTen = (1U << 10U) - 1;
    const std::uint64_t bits = set.bits();
    return (bits | bits >> 10U | bits >> 20U | bits >> 30U) & kTen;
}

}  // namespace

void CountEdges(RedSet cur, RedSet P1, int& edge1, int& edge2, int& edge3) {
    const auto edge = [&](int d) { return cur.CountIn(WithRight(P1, d) | WithLeft(P1, d)); };
    edge1 = edge(1);
    edge2 = edge(2);
    edge3 = edge(3);
}

void CountSkips(RedSet cur, RedSet P1, RedSet P2, RedSet P3, RedSet P4, int& skip1, int& skip2,
                int& skip3) {
    skip1 = cur.Without(P1).CountIn(P2);
    skip2 = cur.Without(P1 | P2).CountIn(P3);
    skip3 = cur.Without(P1 | P2 | P3).CountIn(P4);
}

void CountRowSkipsAndRepeats(RedSequence cur, RedSet P1, int& rowSkip, int& repeats) {
    const RedSet drawn = ToSet(cur);
    RedSet seen;
    rowSkip = repeats = 0;
    for (const int x : cur) {
        if (P1.Has(x)) ++repeats;
        if (drawn.Has(x + 2) && !drawn.Has(x + 1)) {
            ++rowSkip;
            seen.Add(x);
        }
        if (drawn.Has(x - 2) && !seen.Has(x - 2) && !drawn.Has(x - 1)) ++rowSkip;
    }
}

int CountGap1(RedSequence list) {
    return CountDifference(list, 1);
}

int CountGap2(RedSequence list) {
    return CountDifference(list, 2);
}

int CountEqualGaps(RedSequence list) {
    std::vector<int> met;
    int count = 0;
    for (std::size_t i = 1; i < list.size(); ++i) {
        const int difference = std::abs(list[i] - list[i - 1]);
        if (difference == 1 || difference == 2) continue;
        if (std::find(met.begin(), met.end(), difference) != met.end()) ++count;
        met.push_back(difference);
    }
    return count;
}

int CountMirrorPairs(RedSet cur) {
    int halves = 0;
    for (int x = 1; x <= RedSet::kLargest; ++x) {
        const int swapped = x % 10 * 10 + x / 10;
        if (swapped != x && cur.Has(x) && cur.Has(swapped)) ++halves;
    }
    return halves / 2;
}

int CountSlant3(RedSet cur, RedSet P1, RedSet P2) {
    return cur.CountIn(WithRight(P1) & WithRight(P2, 2)) +
           cur.CountIn(WithLeft(P1) & WithLeft(P2, 2));
}

void CountTailGroups(RedSet cur, int& groups) {
    groups = std::popcount(Tails(cur));
}

void CountRepeatTails(RedSet cur, RedSet P1, int& repeatTails) {
    repeatTails = std::popcount(Tails(cur) & Tails(P1));
}

int CountCross(RedSet cur, RedSet P1, RedSet P2) {
    return (cur & P2).CountIn(WithRight(P1) | WithLeft(P1));
}

int CountValley(RedSet cur, RedSet P1) {
    return cur.Without(P1).CountIn(Between(P1));
}

int CountPeak(RedSet cur, RedSet P1) {
    return cur.CountIn(WithRight(cur, 2) & WithRight(P1.Without(cur)));
}

int CountCornerUp(RedSet cur, RedSet P1) {
    return (cur & P1).CountIn(WithRight(P1.Without(cur)));
}

int CountCornerDown(RedSet cur, RedSet P1) {
    return (cur & P1).CountIn(WithLeft(P1.Without(cur)));
}

int CountValleySkip1(RedSet cur, RedSet P1, RedSet P2) {
    return cur.Without(P1).CountIn(Between(P2));
}

int CountValleySkip2(RedSet cur, RedSet P1, RedSet P2, RedSet P3) {
    return cur.Without(P1 | P2).CountIn(Between(P3));
}

int CountDiamond(RedSet cur, RedSet P1, RedSet P2) {
    return (cur & P2).Without(P1).CountIn(Between(P1));
}

int CountDoubleSlant(RedSet cur, RedSet P1, RedSet P2) {
    return cur.CountIn(WithRight(P1 & P2) | WithLeft(P1 & P2));
}

int CountRunSlant(RedSet cur, RedSet P1) {
    return cur.CountIn((WithRight(P1) & WithRight(P1, 2)) | (WithLeft(P1) & WithLeft(P1, 2)));
}

int CountRowSkipSlant(RedSet cur, RedSet P1) {
    const RedSet right = (WithRight(P1) & WithRight(P1, 3)).Without(WithRight(P1, 2));
    const RedSet left = (WithLeft(P1) & WithLeft(P1, 3)).Without(WithLeft(P1, 2));
    return cur.CountIn(right | left);
}

int CountColumnSkipSlant(RedSet cur, RedSet P1, RedSet P2, RedSet P3) {
    const RedSet ends = (P1 & P3).Without(P2);
    return cur.CountIn(WithRight(ends) | WithLeft(ends));
}

int CountAlternateEdge(RedSet cur, RedSet P1, RedSet P2) {
    const RedSet skipped = P2.Without(P1);
    return cur.Without(P1).CountIn(WithRight(skipped) | WithLeft(skipped));
}

int CountEquidistant(RedSet cur, RedSet P1, int d) {
    return cur.CountIn(Between(P1, d));
}

int CountSpacing(RedSequence cur, int d) {
    constexpr std::size_t kWalked = 5;  // the sixth has nothing above it in its draw
    const RedSet drawn = ToSet(cur);
    int count = 0;
    for (const int x : cur.first(std::min(cur.size(), kWalked))) {
        if (drawn.Has(x + d + 1)) ++count;
    }
    return count;
}

int HasGapPattern(RedSequence cur, std::string_view pattern) {
    std::string gaps;
    for (std::size_t i = 1; i < cur.size(); ++i) {
        gaps += TwoDigits(std::abs(cur[i] - cur[i - 1]) - 1) + ',';
    }
    return Contains(gaps, pattern) ? 1 : 0;
}

std::string SortNumberList(std::string_view list) {
    std::vector<int> numbers = IntList(list);
    std::sort(numbers.begin(), numbers.end());
    std::vector<std::string> items;
    items.reserve(numbers.size());
    for (const int number : numbers) items.push_back(TwoDigits(number));
    return Join(items, ",");
}

}  // namespace ssq
