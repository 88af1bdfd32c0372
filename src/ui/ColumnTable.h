// A grid declared as a table of its columns, and what is counted by column.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ui/ResultGrid.h"

namespace ssq {

struct Column {
    std::string heading;
    int width = 0;  // twips; 0 leaves it to the view
    Align alignment = Align::kCentre;
};

using ColumnTable = std::vector<Column>;

// Appends a column for each number from `first` to `last`, headed by `before`, the number and
// `behind`.
void AddNumbered(ColumnTable& columns, int first, int last, int width, std::string_view before = {},
                 std::string_view behind = {});
// The same with headings 01, 02, ...
void AddTwoDigits(ColumnTable& columns, int first, int last, int width);

// A grid of these columns; the headings stand in the lowest fixed row. `rowHeight` in twips, 0
// leaves it to the view.
ResultGrid MakeGrid(std::span<const Column> columns, int rows, int fixedRows, int fixedCols,
                    int rowHeight = 0);

// Back colour of the columns `first` to `last` of a row.
void PaintCells(ResultGrid& grid, int row, int first, int last, Rgb back);

// How many rows scored in each column of a grid.
class ColumnCounts {
  public:
    explicit ColumnCounts(int cols) : counts_(static_cast<std::size_t>(cols)) {}

    void Add(int col) { ++counts_[static_cast<std::size_t>(col)]; }
    int operator[](int col) const { return counts_[static_cast<std::size_t>(col)]; }

    // Writes the share of `whole` rows in percent into the cells of a row, "-" where `whole` is 0.
    void WriteRates(ResultGrid& grid, int row, int firstCol, int lastCol, int whole) const;

  private:
    std::vector<int> counts_;
};

// What an analysis hands to its panel when it did not fail.
struct GridReport {
    ResultGrid grid;
    std::string caption;  // of the group around the grid; empty leaves the one that stands there
    // What as many numbers picked at random would reach; empty where nothing was judged.
    std::string remark = {};
};

}  // namespace ssq
