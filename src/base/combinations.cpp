#include "base/combinations.h"

#include <cassert>

#include "base/numbers.h"
#include "base/text.h"

namespace ssq {

namespace {

std::vector<std::string> Candidates(std::string_view text, bool plainNumbers) {
    std::vector<std::string> items;
    for (const std::string& item : Split(text, ",")) {
        if (item.empty()) continue;
        items.push_back(plainNumbers ? std::to_string(WholePart(item)) : item);
    }
    return items;
}

void Combine(const std::vector<std::string>& items, std::size_t from, int left,
             const std::string& prefix, std::vector<std::string>& combinations) {
    for (std::size_t i = from; i + static_cast<std::size_t>(left) <= items.size(); ++i) {
        if (left == 1) {
            combinations.push_back(prefix + items[i]);
        } else {
            Combine(items, i + 1, left - 1, prefix + items[i] + ",", combinations);
        }
    }
}

std::vector<std::string> Combinations(const std::vector<std::string>& items, int size) {
    std::vector<std::string> combinations;
    Combine(items, 0, size, {}, combinations);
    combinations.emplace_back();
    return combinations;
}

constexpr int kSize = 6;

// Pascal's triangle: [n][k] sets of k out of n items.
constexpr auto kChoose = [] {
    std::array<std::array<std::int32_t, kSize + 1>, RedSet::kLargest + 1> triangle{};
    for (std::size_t n = 0; n < triangle.size(); ++n) {
        triangle[n][0] = 1;
        for (std::size_t k = 1; n > 0 && k <= kSize; ++k) {
            triangle[n][k] = triangle[n - 1][k - 1] + triangle[n - 1][k];
        }
    }
    return triangle;
}();
static_assert(kChoose[RedSet::kLargest][kSize] == kCombinationCount);

}  // namespace

std::vector<std::string> ComboList1(std::string_view candidates) {
    return Combinations(Candidates(candidates, true), 1);
}

std::vector<std::string> ComboList2(std::string_view candidates) {
    return Combinations(Candidates(candidates, false), 2);
}

std::vector<std::string> ComboList3(std::string_view candidates) {
    return Combinations(Candidates(candidates, true), 3);
}

std::vector<std::string> ComboList4(std::string_view candidates) {
    return Combinations(Candidates(candidates, true), 4);
}

std::vector<std::string> ComboList5(std::string_view candidates) {
    return Combinations(Candidates(candidates, true), 5);
}

std::int32_t Choose(int items, int size) {
    return kChoose[static_cast<std::size_t>(items)][static_cast<std::size_t>(size)];
}

// Seen from the far end the order is plain: behind a combination stand all that have a larger
// number at the first position where they differ, and for position i (from 0) with the number r
// those are the sets of 6-i out of the 33-r numbers above it.
std::int32_t CombinationRank(const SixReds& reds) {
    std::int32_t behind = 0;
    int last = 0;
    for (int i = 0; i < kSize; ++i) {
        const int red = reds[static_cast<std::size_t>(i)];
        if (red <= last || red > RedSet::kLargest) return 0;
        behind += Choose(RedSet::kLargest - red, kSize - i);
        last = red;
    }
    return kCombinationCount - behind;
}

SixReds CombinationAt(std::int32_t place) {
    assert(place >= 1 && place <= kCombinationCount);
    SixReds reds{};
    std::int32_t behind = kCombinationCount - place;
    int red = 1;
    for (int i = 0; i < kSize; ++i, ++red) {
        while (Choose(RedSet::kLargest - red, kSize - i) > behind) ++red;
        behind -= Choose(RedSet::kLargest - red, kSize - i);
        reds[static_cast<std::size_t>(i)] = red;
    }
    return reds;
}

}  // namespace ssq
