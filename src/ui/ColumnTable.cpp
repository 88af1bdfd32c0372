#include "ui/ColumnTable.h"

#include "base/numbers.h"
#include "base/text.h"

namespace ssq {

void AddNumbered(ColumnTable& columns, int first, int last, int width, std::string_view before,
                 std::string_view behind) {
    for (int number = first; number <= last; ++number) {
        columns.push_back(
            {std::string(before) + std::to_string(number) + std::string(behind), width});
    }
}

void AddTwoDigits(ColumnTable& columns, int first, int last, int width) {
    for (int number = first; number <= last; ++number) {
        columns.push_back({TwoDigits(number), width});
    }
}

ResultGrid MakeGrid(std::span<const Column> columns, int rows, int fixedRows, int fixedCols,
                    int rowHeight) {
    ResultGrid grid(rows, static_cast<int>(columns.size()), fixedRows, fixedCols);
    int col = 0;
    for (const Column& column : columns) {
        grid.SetCell(fixedRows - 1, col, column.heading);
        if (column.width > 0) grid.SetColWidth(col, column.width);
        grid.SetAlignment(col, column.alignment);
        ++col;
    }
    if (rowHeight > 0) grid.SetAllRowHeights(rowHeight);
    return grid;
}

void PaintCells(ResultGrid& grid, int row, int first, int last, Rgb back) {
    for (int col = first; col <= last; ++col) grid.SetBack(row, col, back);
}

void ColumnCounts::WriteRates(ResultGrid& grid, int row, int firstCol, int lastCol,
                              int whole) const {
    for (int col = firstCol; col <= lastCol; ++col) {
        grid.SetCell(row, col, RateText((*this)[col], whole));
    }
}

}  // namespace ssq
