// Grids and charts of a panel: their content as JSON, and the mouse on their cells.
#pragma once

#include "Json.h"

class QWidget;

namespace ssq {

class GridView;
class ResultGrid;

// The control as a grid; throws when it is something else.
GridView& AsGrid(QWidget& control);

// Rows and columns count from 0, the fixed ones included; sizes are in twips, colours "#RRGGBB".
Json DescribeGrid(const ResultGrid& grid);

// `title`, `labels`, `values`, `min`, `max`; throws when the control is no chart.
Json DescribeChart(const QWidget& control);

void SelectCells(GridView& view, int row, int col, int rowSel, int colSel);

enum class Press { kLeft, kRight, kDouble };

// The mouse on the middle of a cell, brought into view first.
void PressCell(GridView& view, int row, int col, Press press);

}  // namespace ssq
