// Combinations of the items of a list, and the order of all combinations of six reds.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/RedSet.h"

namespace ssq {

// All combinations of that many items of a comma text, each as comma text, in dictionary order of
// the item indexes; empty items are dropped. ComboList2 keeps the items' texts, the others write
// them as plain numbers (01 returns as 1). One empty element follows the last combination.
std::vector<std::string> ComboList1(std::string_view candidates);
std::vector<std::string> ComboList2(std::string_view candidates);
std::vector<std::string> ComboList3(std::string_view candidates);
std::vector<std::string> ComboList4(std::string_view candidates);
std::vector<std::string> ComboList5(std::string_view candidates);

// Six different reds in ascending order.
using SixReds = std::array<int, 6>;

// All combinations of six of 33 reds.
inline constexpr std::int32_t kCombinationCount = 1107568;

// How many sets of `size` (0 to 6) can be taken out of `items` (0 to 33) items; 0 when there are
// too few.
std::int32_t Choose(int items, int size);

// The place of a combination in dictionary order of the ascending numbers: 1 for 01,02,03,04,05,06
// up to kCombinationCount for 28,29,30,31,32,33. 0 when they are not six ascending reds.
std::int32_t CombinationRank(const SixReds& reds);

// The combination at a place from 1 to kCombinationCount.
SixReds CombinationAt(std::int32_t place);

}  // namespace ssq
