// The list of remaining bets: places in the order shown, texts only for what is looked at.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace ssq {

class BetList {
  public:
    static constexpr std::size_t kPageSize = 1000;

    BetList() = default;
    explicit BetList(std::vector<std::uint32_t> ascendingPlaces);

    std::size_t size() const { return shown_.size(); }

    // In ascending order of the places (of the numbers), or of the values of an attribute
    // (a column of BetColumns), bets of the same value staying in ascending order.
    void SortByPlace();
    void SortBy(std::span<const std::uint8_t> column);

    // All places in the order shown, and those of a page counted from 0 (empty behind the last).
    std::span<const std::uint32_t> Shown() const { return shown_; }
    std::size_t PageCount() const { return (size() + kPageSize - 1) / kPageSize; }
    std::span<const std::uint32_t> Page(std::size_t page) const;

    // `count` different bets at random (all when there are fewer), ascending.
    std::vector<std::uint32_t> PickAtRandom(std::size_t count, std::mt19937_64& random) const;

  private:
    std::vector<std::uint32_t> ascending_;
    std::vector<std::uint32_t> shown_;
};

// Appends the reds of a place as two digits each with commas between.
void AppendBetText(std::uint32_t place, std::string& text);

}  // namespace ssq
