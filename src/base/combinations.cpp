#include "base/combinations.h"

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

}  // namespace ssq
