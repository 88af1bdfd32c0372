#include "charts/rowLngZST.h"

#include <algorithm>
#include <string>

#include "base/combinations.h"
#include "base/text.h"

namespace ssq {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int CountInList(std::string_view list, int number) {
    const auto items = Split(list, ",");
    return static_cast<int>(std::count(items.begin(), items.end(), std::to_string(number)));
}

}  // namespace

std::int32_t CombinationRank(std::string_view text) {
    constexpr std::size_t kStep = 3;  // two digits and a comma
    SixReds reds{};
    if (text.size() != reds.size() * kStep - 1) return 0;
    for (std::size_t i = 0; i < reds.size(); ++i) {
        const std::string_view item = text.substr(i * kStep, kStep);
        if (!IsDigit(item[0]) || !IsDigit(item[1])) return 0;
        if (item.size() == kStep && item[2] != ',') return 0;
        reds[i] = (item[0] - '0') * 10 + (item[1] - '0');
    }
    return CombinationRank(reds);
}

int CountSameCells(const ResultGrid& grid, int row, int firstCol, int lastCol) {
    int same = 0;
    for (int col = firstCol; col <= lastCol; ++col) {
        if (grid.cell(row, col) == grid.cell(row - 1, col)) ++same;
    }
    return same;
}

int CountEmptyRows(std::string_view list, int rowCount) {
    int empty = 0;
    for (int number = 1; number <= rowCount; ++number) {
        if (CountInList(list, number) == 0) ++empty;
    }
    return empty;
}

void FillRowCounts(ResultGrid& grid, std::string_view list, int row) {
    constexpr int kLayoutRows = 5;
    constexpr int kFirstCol = 16;
    for (int number = 1; number <= kLayoutRows; ++number) {
        grid.SetCell(row, kFirstCol + number - 1, std::to_string(CountInList(list, number)));
    }
}

}  // namespace ssq
