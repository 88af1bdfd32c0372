// Combinations of the items of a list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ssq {

// All combinations of that many items of a comma text, each as comma text, in dictionary order of
// the item indexes; empty items are dropped. ComboList2 keeps the items' texts, the others write
// them as plain numbers (01 returns as 1). One empty element follows the last combination.
std::vector<std::string> ComboList1(std::string_view candidates);
std::vector<std::string> ComboList2(std::string_view candidates);
std::vector<std::string> ComboList3(std::string_view candidates);
std::vector<std::string> ComboList4(std::string_view candidates);
std::vector<std::string> ComboList5(std::string_view candidates);

}  // namespace ssq
