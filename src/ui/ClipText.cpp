#include "ui/ClipText.h"

#include <algorithm>

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

}  // namespace ssq
