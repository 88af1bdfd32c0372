#include "bets/BetList.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "base/combinations.h"

namespace ssq {

BetList::BetList(std::vector<std::uint32_t> ascendingPlaces)
    : ascending_(std::move(ascendingPlaces)), shown_(ascending_) {}

void BetList::SortByPlace() {
    shown_ = ascending_;
}

void BetList::SortBy(std::span<const std::uint8_t> column) {
    std::array<std::size_t, 256> next{};
    for (const std::uint32_t place : ascending_) ++next[column[place - 1]];
    std::size_t begin = 0;
    for (std::size_t& slot : next) begin += std::exchange(slot, begin);
    for (const std::uint32_t place : ascending_) shown_[next[column[place - 1]]++] = place;
}

std::span<const std::uint32_t> BetList::Page(std::size_t page) const {
    const std::size_t begin = std::min(page * kPageSize, size());
    return Shown().subspan(begin, std::min(kPageSize, size() - begin));
}

std::vector<std::uint32_t> BetList::PickAtRandom(std::size_t count, std::mt19937_64& random) const {
    std::vector<std::uint32_t> picked;
    picked.reserve(std::min(count, ascending_.size()));
    std::sample(ascending_.begin(), ascending_.end(), std::back_inserter(picked), count, random);
    return picked;
}

void AppendBetText(std::uint32_t place, std::string& text) {
    bool first = true;
    for (const int red : CombinationAt(static_cast<std::int32_t>(place))) {
        if (!std::exchange(first, false)) text += ',';
        text += static_cast<char>('0' + red / 10);
        text += static_cast<char>('0' + red % 10);
    }
}

}  // namespace ssq
