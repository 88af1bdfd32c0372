#include "Grids.h"

#include <QJsonArray>
#include <QTest>
#include <QWindow>
#include <map>
#include <string>

#include "Refusal.h"
#include "ui/qt/GridView.h"
#include "ui/qt/LineChart.h"
#include "ui/qt/PanelContext.h"

namespace ssq {

namespace {

QString Hex(Rgb colour) {
    return QStringLiteral("#%1%2%3")
        .arg(colour.red, 2, 16, QLatin1Char('0'))
        .arg(colour.green, 2, 16, QLatin1Char('0'))
        .arg(colour.blue, 2, 16, QLatin1Char('0'))
        .toUpper();
}

// A JSON object of cells. Adding to a QJsonObject is fast only in the order of the keys, so they
// are put in that order first: a chart panel's grid has a quarter of a million cells.
class CellMap {
  public:
    void Add(const std::string& key, const QJsonValue& value) { values_[key] = value; }

    QJsonObject ToJson() const {
        QJsonObject object;
        for (const auto& [key, value] : values_) object.insert(Qs(key), value);
        return object;
    }

  private:
    std::map<std::string, QJsonValue> values_;
};

struct CellMaps {
    CellMap cells, back, fore, size, font;
    QJsonArray bold;

    void Add(const std::string& key, const std::string& text, const CellStyle& style) {
        if (!text.empty()) cells.Add(key, Qs(text));
        if (style.back) back.Add(key, Hex(*style.back));
        if (style.fore) fore.Add(key, Hex(*style.fore));
        if (style.bold) bold.append(Qs(key));
        if (style.fontSize != 0) size.Add(key, style.fontSize);
        if (!style.fontName.empty()) font.Add(key, Qs(style.fontName));
    }
};

void DescribeCells(QJsonObject& fields, const ResultGrid& grid) {
    CellMaps maps;
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            maps.Add(std::to_string(row) + "," + std::to_string(col), grid.cell(row, col),
                     grid.style(row, col));
        }
    }
    fields[u"cells"] = maps.cells.ToJson();
    fields[u"back"] = maps.back.ToJson();
    fields[u"fore"] = maps.fore.ToJson();
    fields[u"bold"] = maps.bold;
    fields[u"size"] = maps.size.ToJson();
    fields[u"font"] = maps.font.ToJson();
}

void DescribeRows(QJsonObject& fields, const ResultGrid& grid) {
    CellMap heights;
    QJsonArray merged;
    for (int row = 0; row < grid.rows(); ++row) {
        if (const auto height = grid.rowHeight(row)) heights.Add(std::to_string(row), *height);
        if (grid.mergeRow(row)) merged.append(row);
    }
    fields[u"height"] = heights.ToJson();
    fields[u"mergeRow"] = merged;
}

void DescribeColumns(QJsonObject& fields, const ResultGrid& grid) {
    CellMap widths;
    QJsonArray hidden;
    QJsonArray merged;
    for (int col = 0; col < grid.cols(); ++col) {
        if (const auto width = grid.colWidth(col)) widths.Add(std::to_string(col), *width);
        if (grid.hidden(col)) hidden.append(col);
        if (grid.mergeCol(col)) merged.append(col);
    }
    fields[u"width"] = widths.ToJson();
    fields[u"hidden"] = hidden;
    fields[u"mergeCol"] = merged;
}

void RequireCell(const ResultGrid& grid, int row, int col) {
    if (row >= 0 && row < grid.rows() && col >= 0 && col < grid.cols()) return;
    throw Refusal(u"no cell %1,%2 in a grid of %3 rows and %4 columns"_qs.arg(row)
                      .arg(col)
                      .arg(grid.rows())
                      .arg(grid.cols()));
}

// The middle of the visible part of a cell, in coordinates of its window.
QPoint PlaceOfCell(GridView& view, int row, int col) {
    RequireCell(view.grid(), row, col);
    if (view.grid().hidden(col)) throw Refusal(u"column %1 is hidden"_qs.arg(col));
    const QModelIndex index = view.model()->index(row, col);
    view.scrollTo(index);
    const QRect seen = view.visualRect(index) & view.viewport()->rect();
    if (seen.isEmpty() || view.indexAt(seen.center()) != index) {
        throw Refusal(u"cell %1,%2 cannot be seen"_qs.arg(row).arg(col));
    }
    return view.viewport()->mapTo(view.window(), seen.center());
}

QWindow* WindowOf(const GridView& view) {
    return view.window()->windowHandle();
}

}  // namespace

GridView& AsGrid(QWidget& control) {
    if (auto* view = qobject_cast<GridView*>(&control)) return *view;
    throw Refusal(u"'%1' is no grid"_qs.arg(control.objectName()));
}

const LineChart& AsChart(const QWidget& control) {
    if (auto* chart = qobject_cast<const LineChart*>(&control)) return *chart;
    throw Refusal(u"'%1' is no chart"_qs.arg(control.objectName()));
}

QJsonObject DescribeGrid(const ResultGrid& grid) {
    QJsonObject fields{
        {u"rows"_qs, grid.rows()},
        {u"cols"_qs, grid.cols()},
        {u"fixedRows"_qs, grid.fixedRows()},
        {u"fixedCols"_qs, grid.fixedCols()},
        {u"selection"_qs, QJsonArray{grid.row(), grid.col(), grid.rowSel(), grid.colSel()}},
    };
    DescribeCells(fields, grid);
    DescribeRows(fields, grid);
    DescribeColumns(fields, grid);
    return fields;
}

QJsonObject DescribeChart(const LineChart& chart) {
    const LineChartData& data = chart.data();
    QJsonArray labels;
    for (const std::string& label : data.labels) labels.append(Qs(label));
    QJsonArray values;
    for (const double value : data.values) values.append(value);
    return {{u"title"_qs, Qs(data.title)},
            {u"labels"_qs, labels},
            {u"values"_qs, values},
            {u"min"_qs, data.min},
            {u"max"_qs, data.max}};
}

void SelectCells(GridView& view, int row, int col, int rowSel, int colSel) {
    RequireCell(view.grid(), row, col);
    RequireCell(view.grid(), rowSel, colSel);
    view.Edit([=](ResultGrid& grid) { grid.Select(row, col, rowSel, colSel); });
}

void ClickCell(GridView& view, int row, int col, Qt::MouseButton button) {
    QTest::mouseClick(WindowOf(view), button, {}, PlaceOfCell(view, row, col));
}

void DoubleClickCell(GridView& view, int row, int col) {
    QTest::mouseDClick(WindowOf(view), Qt::LeftButton, {}, PlaceOfCell(view, row, col));
}

}  // namespace ssq
