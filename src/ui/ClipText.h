// The texts that the copy commands put on the clipboard, made from a grid's selection.
#pragma once

#include <string>

#include "ui/ResultGrid.h"

namespace ssq {

// The selected cells, commas between the cells of a row and a carriage return between rows; empty
// without a selection. Cells of hidden columns inside the selection are part of it.
std::string SelectionText(const ResultGrid& grid);

// The selection as conditions of a number filter: each row followed by "/0~1", line ends "\r\n"
// between them and none behind the last; empty without a selection.
std::string SelectionConditions(const ResultGrid& grid);

}  // namespace ssq
