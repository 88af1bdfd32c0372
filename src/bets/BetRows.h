// The triples of upper reds as rows of bits, and how rows of failing triples are added up.
//
// The triples out of 4 to 33 are 4,060 in dictionary order; those above a given third red are
// always the last ones. They are kept at the end of the row, so that a third red's triples fill
// its last lanes and only the first of these lanes holds strange bits in front.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "base/RedSet.h"

namespace ssq {

using BetWord = std::uint64_t;

// Two words that every x86-64 processor handles at once.
using BetLane = BetWord __attribute__((vector_size(16)));
using BetBytes = std::uint8_t __attribute__((vector_size(16)));

inline constexpr std::size_t kBetWordBits = 64;
inline constexpr std::size_t kBetRowWords = 64;
inline constexpr std::size_t kBetLaneBits = 8 * sizeof(BetLane);
inline constexpr std::size_t kBetRowLanes = kBetRowWords * kBetWordBits / kBetLaneBits;

struct alignas(sizeof(BetLane)) BetRow {
    std::array<BetWord, kBetRowWords> words{};

    BetLane Lane(std::size_t lane) const {
        BetLane bits;
        std::memcpy(&bits, &words[lane * 2], sizeof bits);
        return bits;
    }
};

// The bit and the lane of the first triple above a third red.
std::size_t FirstTriple(int third);
inline std::size_t FirstLane(int third) {
    return FirstTriple(third) / kBetLaneBits;
}

// The triples that hold exactly 0, 1, 2 and 3 reds of the set.
std::array<BetRow, 4> TriplesByCount(RedSet reds);

// All but the triples above the third red that consist of usable reds and hold every banker that
// is above it.
BetRow TriplesOutside(int third, RedSet usable, RedSet bankers);

// A condition on one byte of each combination.
struct BetByteTest {
    // Values low to low + span pass; both stand in every byte.
    struct Interval {
        BetBytes low;
        BetBytes span;
    };
    std::span<const Interval> intervals;
    const std::uint8_t* bytes = nullptr;  // of the combinations from `firstLane` on
    std::size_t firstLane = 0;

    // The combinations of a lane that pass none of the intervals.
    BetLane Failing(std::size_t lane) const;
};

// What one prefix of lower reds leaves to be asked of the upper ones.
struct BetRowSum {
    const BetRow* outside = nullptr;
    // These may not fail at all, ...
    std::span<const BetRow* const> mustRows;
    std::span<const BetByteTest> mustBytes;
    // ... and of these not more than `tolerance`.
    std::span<const BetRow* const> rows;
    std::span<const BetByteTest> bytes;
    int tolerance = 0;

    // Writes the lanes from `firstLane` to the end: the triples that pass.
    void Passing(std::size_t firstLane, BetLane* lanes) const;
};

}  // namespace ssq
