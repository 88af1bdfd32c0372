// A set of red numbers, 1 to 33, in one word: bit n stands for number n.
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

namespace ssq {

class RedSet {
  public:
    static constexpr int kLargest = 33;

    constexpr RedSet() = default;

    // Numbers outside 1 to 33 are no members of any set.
    constexpr void Add(int number) {
        if (number >= 1 && number <= kLargest) bits_ |= std::uint64_t{1} << number;
    }
    constexpr bool Has(int number) const {
        return number >= 1 && number <= kLargest && (bits_ >> number & 1U) != 0;
    }
    constexpr int Count() const { return std::popcount(bits_); }
    constexpr bool empty() const { return bits_ == 0; }
    constexpr std::uint64_t bits() const { return bits_; }

    constexpr RedSet operator&(RedSet other) const { return RedSet(bits_ & other.bits_); }
    constexpr RedSet operator|(RedSet other) const { return RedSet(bits_ | other.bits_); }
    constexpr RedSet Without(RedSet other) const { return RedSet(bits_ & ~other.bits_); }
    constexpr bool operator==(const RedSet&) const = default;

    constexpr int CountIn(RedSet other) const { return (*this & other).Count(); }

    // Every number lowered or raised by `offset` (0 to 32) in the ring 1..33: 1 lowered by 1
    // gives 33, 33 raised by 1 gives 1.
    constexpr RedSet Lowered(int offset) const { return Raised(kLargest - offset); }
    constexpr RedSet Raised(int offset) const {
        const std::uint64_t ring = bits_ >> 1;
        return RedSet(((ring << offset | ring >> (kLargest - offset)) & kRing) << 1);
    }

    // Every number plus or minus `step` (0 to 63) on the open line: what leaves 1..33 drops out.
    constexpr RedSet Plus(int step) const { return RedSet(bits_ << step & kRing << 1); }
    constexpr RedSet Minus(int step) const { return RedSet(bits_ >> step & kRing << 1); }

    // Reads comma text; items that are no number from 1 to 33 are left out.
    static RedSet FromList(std::string_view list);

    // Ascending two-digit numbers joined by commas (a `RedList` when there are six).
    std::string ToList() const;

  private:
    static constexpr std::uint64_t kRing = (std::uint64_t{1} << kLargest) - 1;

    explicit constexpr RedSet(std::uint64_t bits) : bits_(bits) {}

    std::uint64_t bits_ = 0;
};

}  // namespace ssq
