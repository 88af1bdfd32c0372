// Small counts of the charts over their rows, and the place of a draw among all combinations.
#pragma once

#include <cstdint>
#include <string_view>

#include "ui/ResultGrid.h"

namespace ssq {

// The place of six reds, such as "01,02,03,04,05,07", in the dictionary order of all combinations,
// from 1; 0 when the text is not of that form or not ascending.
std::int32_t CombinationRank(std::string_view text);

// How many cells of the columns have the text of the cell above. Two empty ones are the same.
int CountSameCells(const ResultGrid& grid, int row, int firstCol, int lastCol);

// How many of the numbers 1 to `rowCount` are missing in a list such as "1,1,3,5,5,5,".
int CountEmptyRows(std::string_view list, int rowCount);

// How often the numbers 1 to 5 stand in the list, into the columns 16 to 20.
void FillRowCounts(ResultGrid& grid, std::string_view list, int row);

}  // namespace ssq
