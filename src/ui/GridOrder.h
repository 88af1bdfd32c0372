// What a view does with a grid that stays as it is: rows in another order, texts that are looked
// for, figures of a selection.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/GridGeometry.h"
#include "ui/ResultGrid.h"

namespace ssq {

// The rows from the top when the body is ordered by a column: numbers by value before texts by
// their characters, empty cells last, ties as they stand. Fixed rows and those from `footRow` on
// keep their places.
std::vector<int> SortedRows(const ResultGrid& grid, int col, bool descending);

// The selected rows, ascending.
std::vector<int> SelectedRows(const ResultGrid& grid);

struct CellPlace {
    int row = 0;
    int col = 0;

    auto operator<=>(const CellPlace&) const = default;
};

// The cells whose text holds `text`, without regard to case, row after row; hidden columns are
// passed over, and so is all but the first of cells that show as one. None for an empty text.
std::vector<CellPlace> FindCells(const ResultGrid& grid, const GridGeometry& geometry,
                                 const std::string& text);

struct SelectionFigures {
    int cells = 0;
    int numbers = 0;  // cells whose whole text is one number
    double sum = 0;   // of those
};

// Hidden columns do not count.
SelectionFigures FiguresOf(const ResultGrid& grid);

}  // namespace ssq
