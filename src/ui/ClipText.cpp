#include "ui/ClipText.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "ui/GridGeometry.h"

namespace ssq {

namespace {

constexpr const char* kCondition = "/0~1";
constexpr const char* kConditionLine = "/0~1\r\n";

}  // namespace

std::string SelectionText(const ResultGrid& grid) {
    const CellRange range = SelectedRange(grid);
    std::string text;
    for (int row = range.top; row <= range.bottom; ++row) {
        if (row > range.top) text += '\r';
        for (int col = range.left; col <= range.right; ++col) {
            if (col > range.left) text += '\t';
            text += grid.cell(row, col);
        }
    }
    std::replace(text.begin(), text.end(), '\t', ',');
    return text;
}

std::string SelectionConditions(const ResultGrid& grid) {
    if (grid.row() < 0) return {};
    return Replace(SelectionText(grid), "\r", kConditionLine) + kCondition;
}

std::string KillConditions(const ResultGrid& grid, int groups) {
    constexpr int kGroupCols = 6;
    constexpr int kGroupsWithPairs = 3;
    constexpr std::array<std::pair<int, int>, 7> kPairs{
        {{2, 8}, {7, 13}, {8, 14}, {13, 19}, {14, 20}, {19, 25}, {2, 25}}};

    const int row = grid.rowSel();
    if (row < 0) return {};
    std::string text;
    for (int i = 1; i <= (groups + 1) * kGroupCols; ++i) {
        text += grid.cell(row, i + 1);
        text += i % kGroupCols == 0 ? kConditionLine : ",";
    }
    if (groups == kGroupsWithPairs) {
        for (const auto& [a, b] : kPairs) {
            text += grid.cell(row, a) + "," + grid.cell(row, b) + kConditionLine;
        }
    }
    return text;
}

}  // namespace ssq
