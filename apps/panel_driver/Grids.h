// Grids and charts of a panel: their content as JSON, and the mouse on their cells.
#pragma once

#include <QJsonObject>
#include <QWidget>

namespace ssq {

class GridView;
class LineChart;
class ResultGrid;

// The control as a grid or chart; a Refusal when it is something else.
GridView& AsGrid(QWidget& control);
const LineChart& AsChart(const QWidget& control);

// Rows and columns count from 0, the fixed ones included; sizes are in twips, colours "#RRGGBB".
QJsonObject DescribeGrid(const ResultGrid& grid);

// `title`, `labels`, `values`, `min`, `max`.
QJsonObject DescribeChart(const LineChart& chart);

void SelectCells(GridView& view, int row, int col, int rowSel, int colSel);

// The mouse on the middle of a cell, brought into view first.
void ClickCell(GridView& view, int row, int col, Qt::MouseButton button);
void DoubleClickCell(GridView& view, int row, int col);

}  // namespace ssq
