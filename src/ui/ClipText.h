// The texts in which a grid leaves the program: those of the copy commands, made from a selection,
// and tables for other programs.
#pragma once

#include <span>
#include <string>

#include "ui/ResultGrid.h"

namespace ssq {

// The cells of the selected columns in these rows (SelectedRows, where the grid stands in its own
// order), commas between the cells of a row and a carriage return between rows; empty without a
// selection. Cells of hidden columns inside the selection are part of it.
std::string SelectionText(const ResultGrid& grid, std::span<const int> rows);

// The same as conditions of a number filter: each row followed by "/0~1", line ends "\r\n" between
// them and none behind the last; empty without a selection.
std::string SelectionConditions(const ResultGrid& grid, std::span<const int> rows);

// The part of a grid that a table shows: the heading rows and fixed columns, and the selected
// columns in the rows given. Hidden columns are left out.
struct TablePart {
    std::vector<int> rows;
    std::vector<int> cols;
    int bodyRows = 0;
    int bodyCols = 0;
};
TablePart SelectedTable(const ResultGrid& grid, std::span<const int> rows);
TablePart WholeTable(const ResultGrid& grid);

// Tabs between cells, "\r\n" behind each row.
std::string TabbedText(const ResultGrid& grid, const TablePart& part);
// An HTML table with the grid's colours; numbers with leading zeros stay texts where a spreadsheet
// takes it in.
std::string HtmlTable(const ResultGrid& grid, const TablePart& part);
// Comma-separated values as RFC 4180 has them, in UTF-8 with a byte order mark.
std::string CsvText(const ResultGrid& grid, const TablePart& part);

}  // namespace ssq
