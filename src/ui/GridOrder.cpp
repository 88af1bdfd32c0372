#include "ui/GridOrder.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "base/numbers.h"
#include "base/text.h"

namespace ssq {

namespace {

// A list of balls is no number, though its commas could group digits.
std::optional<double> CellNumber(const std::string& text) {
    return Contains(text, ",") ? std::nullopt : ParseNumber(text);
}

struct SortKey {
    int row;
    enum Kind { kNumber, kText, kEmpty } kind;
    double number;
};

SortKey KeyOf(const ResultGrid& grid, int row, int col) {
    const std::string& text = grid.cell(row, col);
    if (text.empty()) return {row, SortKey::kEmpty, 0};
    const auto number = CellNumber(text);
    return {row, number ? SortKey::kNumber : SortKey::kText, number.value_or(0)};
}

}  // namespace

std::vector<int> SortedRows(const ResultGrid& grid, int col, bool descending) {
    std::vector<int> rows(static_cast<std::size_t>(grid.rows()));
    std::iota(rows.begin(), rows.end(), 0);
    const int first = std::min(grid.fixedRows(), grid.rows());
    const int end = std::clamp(grid.footRow.value_or(grid.rows()), first, grid.rows());
    std::vector<SortKey> keys;
    keys.reserve(static_cast<std::size_t>(end - first));
    for (int row = first; row < end; ++row) keys.push_back(KeyOf(grid, row, col));
    std::ranges::stable_sort(keys, [&](const SortKey& a, const SortKey& b) {
        if (a.kind == SortKey::kEmpty || b.kind == SortKey::kEmpty) return a.kind < b.kind;
        const SortKey& low = descending ? b : a;
        const SortKey& high = descending ? a : b;
        if (low.kind != high.kind) return low.kind < high.kind;
        if (low.kind == SortKey::kNumber) return low.number < high.number;
        return grid.cell(low.row, col) < grid.cell(high.row, col);
    });
    std::ranges::transform(keys, rows.begin() + first, &SortKey::row);
    return rows;
}

std::vector<int> SelectedRows(const ResultGrid& grid) {
    const CellRange range = SelectedRange(grid);
    std::vector<int> rows;
    for (int row = range.top; row <= range.bottom; ++row) rows.push_back(row);
    return rows;
}

std::vector<CellPlace> FindCells(const ResultGrid& grid, const GridGeometry& geometry,
                                 const std::string& text) {
    std::vector<CellPlace> found;
    if (text.empty()) return found;
    const std::string wanted = LowerCase(text);
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            const std::string& cell = grid.cell(row, col);
            if (cell.empty() || grid.hidden(col) || !Contains(LowerCase(cell), wanted)) continue;
            const bool fixed = row < grid.fixedRows() || col < grid.fixedCols();
            const CellRange shown =
                fixed ? geometry.MergedAround(row, col) : CellRange{row, col, row, col};
            if (shown.top == row && shown.left == col) found.push_back({row, col});
        }
    }
    return found;
}

SelectionFigures FiguresOf(const ResultGrid& grid) {
    SelectionFigures figures;
    const CellRange range = SelectedRange(grid);
    for (int row = range.top; row <= range.bottom; ++row) {
        for (int col = range.left; col <= range.right; ++col) {
            if (grid.hidden(col)) continue;
            ++figures.cells;
            const auto number = CellNumber(grid.cell(row, col));
            if (!number) continue;
            ++figures.numbers;
            figures.sum += *number;
        }
    }
    return figures;
}

}  // namespace ssq
