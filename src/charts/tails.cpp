#include "charts/tails.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace ssq {

namespace {

constexpr std::string_view kLetterOfDigit = "BABCABCABC";
constexpr std::array<bool, 10> kPrimeTail{false, true,  true, true,  false,
                                          true,  false, true, false, false};

std::size_t ZoneOf(int digit) {
    return digit <= 2 ? 0 : digit <= 5 ? 1 : 2;
}

}  // namespace

TailDigits TailsOf(const std::array<int, 6>& numbers) {
    TailDigits tails{};
    std::transform(numbers.begin(), numbers.end(), tails.begin(), TailDigit);
    return tails;
}

TailAttributes AttributesOf(const TailDigits& tails) {
    TailAttributes result;
    for (const int digit : tails) {
        const auto d = static_cast<std::size_t>(TailDigit(digit));
        ++result.hits[d];
        result.sum += digit;
        ++(digit % 2 == 0 ? result.even : result.odd);
        ++(digit >= 5 ? result.big : result.small);
        ++(kPrimeTail[d] ? result.prime : result.composite);
        ++result.zones[ZoneOf(digit)];
        result.form += kLetterOfDigit[d];
        ++result.letters[static_cast<std::size_t>(kLetterOfDigit[d] - 'A')];
    }
    result.sameTailGroups = static_cast<int>(
        std::count_if(result.hits.begin(), result.hits.end(), [](int hits) { return hits >= 2; }));
    for (std::size_t i = 0; i + 1 < tails.size(); ++i) {
        result.distance[i] = std::abs(tails[i] - tails[i + 1]);
        result.pairSum[i] = tails[i] + tails[i + 1];
    }
    return result;
}

std::array<int, 6> SwingOf(const TailDigits& tails, const TailDigits& above) {
    std::array<int, 6> swing{};
    for (std::size_t i = 0; i < swing.size(); ++i) swing[i] = std::abs(tails[i] - above[i]);
    return swing;
}

}  // namespace ssq
