#include "Grids.h"

#include <QTest>
#include <QWidget>
#include <QWindow>
#include <cstdio>
#include <stdexcept>

#include "ui/qt/BandChart.h"
#include "ui/qt/GridView.h"
#include "ui/qt/LineChart.h"

namespace ssq {

namespace {

using Refusal = std::runtime_error;

Json Hex(const std::optional<Rgb>& colour) {
    if (!colour) return nullptr;
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", colour->red, colour->green, colour->blue);
    return text;
}

std::string Key(int row, int col) {
    return std::to_string(row) + "," + std::to_string(col);
}

void DescribeCell(Json& fields, const std::string& key, const std::string& text,
                  const CellStyle& style) {
    if (!text.empty()) fields["cells"][key] = text;
    if (style.back) fields["back"][key] = Hex(style.back);
    if (style.fore) fields["fore"][key] = Hex(style.fore);
    if (style.bold) fields["bold"].push_back(key);
    if (style.fontSize != 0) fields["size"][key] = style.fontSize;
    if (!style.fontName.empty()) fields["font"][key] = style.fontName;
}

void RequireCell(const ResultGrid& grid, int row, int col) {
    if (row >= 0 && row < grid.rows() && col >= 0 && col < grid.cols()) return;
    throw Refusal("no cell " + Key(row, col) + " in a grid of " + std::to_string(grid.rows()) +
                  " rows and " + std::to_string(grid.cols()) + " columns");
}

// The middle of the visible part of a cell, in coordinates of its window.
QPoint PlaceOfCell(GridView& view, int row, int col) {
    RequireCell(view.grid(), row, col);
    const QModelIndex index = view.IndexOf(row, col);
    view.scrollTo(index);
    const QRect seen = view.visualRect(index) & view.viewport()->rect();
    if (view.grid().hidden(col) || seen.isEmpty() || view.indexAt(seen.center()) != index) {
        throw Refusal("cell " + Key(row, col) + " cannot be seen");
    }
    return view.viewport()->mapTo(view.window(), seen.center());
}

Json DescribeBands(const BandChart& chart) {
    Json fields{{"title", chart.valueTitle().toStdString()},
                {"labels", chart.data().labels},
                {"tracks", Json::array()}};
    for (const BandTrack& track : chart.data().tracks) {
        Json drawn{{"name", track.name},
                   {"values", Json::array()},
                   {"chance", Json::array()},
                   {"reach", track.reach}};
        for (std::size_t draws = 1; draws <= track.score.size(); ++draws) {
            drawn["values"].push_back(chart.ValueAt(track, draws));
            drawn["chance"].push_back(chart.ChanceAt(track, draws));
        }
        fields["tracks"].push_back(std::move(drawn));
    }
    return fields;
}

}  // namespace

GridView& AsGrid(QWidget& control) {
    if (auto* view = qobject_cast<GridView*>(&control)) return *view;
    throw Refusal("'" + control.objectName().toStdString() + "' is no grid");
}

Json DescribeGrid(const ResultGrid& grid) {
    Json fields{{"rows", grid.rows()},
                {"cols", grid.cols()},
                {"fixedRows", grid.fixedRows()},
                {"fixedCols", grid.fixedCols()},
                {"gridBack", Hex(grid.gridBack)},
                {"gridLines", Hex(grid.gridLines)},
                {"selection", {grid.row(), grid.col(), grid.rowSel(), grid.colSel()}}};
    for (const char* map : {"cells", "back", "fore", "size", "font", "height", "width", "align"}) {
        fields[map] = Json::object();
    }
    for (const char* list : {"bold", "hidden", "mergeRow", "mergeCol"}) {
        fields[list] = Json::array();
    }
    for (int row = 0; row < grid.rows(); ++row) {
        if (const auto height = grid.rowHeight(row))
            fields["height"][std::to_string(row)] = *height;
        if (grid.mergeRow(row)) fields["mergeRow"].push_back(row);
        for (int col = 0; col < grid.cols(); ++col) {
            DescribeCell(fields, Key(row, col), grid.cell(row, col), grid.style(row, col));
        }
    }
    for (int col = 0; col < grid.cols(); ++col) {
        if (const auto width = grid.colWidth(col)) fields["width"][std::to_string(col)] = *width;
        fields["align"][std::to_string(col)] = static_cast<int>(grid.alignment(col));
        if (grid.hidden(col)) fields["hidden"].push_back(col);
        if (grid.mergeCol(col)) fields["mergeCol"].push_back(col);
    }
    return fields;
}

Json DescribeChart(const QWidget& control) {
    if (auto* bands = qobject_cast<const BandChart*>(&control)) return DescribeBands(*bands);
    auto* chart = qobject_cast<const LineChart*>(&control);
    if (!chart) throw Refusal("'" + control.objectName().toStdString() + "' is no chart");
    const LineChartData& data = chart->data();
    return {{"title", data.title},
            {"labels", data.labels},
            {"values", data.values},
            {"min", data.min},
            {"max", data.max}};
}

void SelectCells(GridView& view, int row, int col, int rowSel, int colSel) {
    RequireCell(view.grid(), row, col);
    RequireCell(view.grid(), rowSel, colSel);
    view.Edit([=](ResultGrid& grid) { grid.Select(row, col, rowSel, colSel); });
}

void PressCell(GridView& view, int row, int col, Press press) {
    const QPoint place = PlaceOfCell(view, row, col);
    QWindow* window = view.window()->windowHandle();
    if (press == Press::kDouble) {
        QTest::mouseDClick(window, Qt::LeftButton, {}, place);
    } else {
        QTest::mouseClick(window, press == Press::kLeft ? Qt::LeftButton : Qt::RightButton, {},
                          place);
    }
}

}  // namespace ssq
