// The attributes that a plan can ask of a bet: one table of names and calculators, and their values
// for all combinations.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/RedSet.h"
#include "base/combinations.h"

namespace ssq {

// Six reds beside the draw they look back to.
struct Bet {
    Bet(const SixReds& ascending, RedSet before);
    Bet(const SixReds& ascending, RedSet sameReds, RedSet before)
        : reds(ascending), set(sameReds), previous(before) {}

    SixReds reds;
    RedSet set;
    RedSet previous;  // empty when there is none
};

struct BetAttribute {
    std::string_view name;
    std::vector<std::string_view> synonyms;
    // 1 for a number, 2 or 3 for a ratio of so many parts that add up to six.
    int parts = 1;
    // The value, 0 to 255; a ratio's value is its RatioValue. Null where `counted` tells.
    int (*calculate)(const Bet& bet) = nullptr;
    // The value is how many reds of the bet are in this set. Null for other attributes.
    RedSet (*counted)(RedSet previous) = nullptr;
    bool looksBack = false;  // depends on the draw before

    int Value(const Bet& bet) const;
    // As cells show it: 86, 4:2, 3:2:1.
    std::string Text(int value) const;
};

// All attributes; an attribute is named elsewhere by its index here.
const std::vector<BetAttribute>& BetAttributes();

// The index of the attribute with that name or synonym, -1 when there is none.
int FindBetAttribute(std::string_view name);

// The value that stands for a ratio of two or three parts which add up to six.
int RatioValue(std::span<const int> parts);

// The values of attributes for all combinations, one byte each in the order of their places. A
// column is made when it is first asked for (about 10 ms and a megabyte), one that looks back again
// when the draw before is another. Keep one as long as plans are being worked on.
class BetColumns {
  public:
    // Bytes that may be read before the first value, so that blocks need not start at a column's.
    static constexpr std::size_t kFrontRoom = 128;

    // [0] is the value of place 1. Valid until the attribute is asked for with another draw.
    std::span<const std::uint8_t> Of(int attribute, RedSet previous);

  private:
    struct Column {
        std::vector<std::uint8_t> bytes;  // kFrontRoom, then the values
        RedSet previous;
    };
    std::vector<Column> columns_;
};

}  // namespace ssq
