#include "ui/ClipText.h"

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <set>

#include "base/numbers.h"
#include "base/text.h"
#include "ui/GridGeometry.h"
#include "ui/GridLook.h"

namespace ssq {

namespace {

constexpr const char* kCondition = "/0~1";
constexpr const char* kConditionLine = "/0~1\r\n";

// One line of a table: no tabs and line ends inside a cell.
std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return text;
}

std::string Escaped(const std::string& text) {
    return Replace(Replace(Replace(text, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

std::string Hex(const Rgb& colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.red, colour.green, colour.blue);
    return text;
}

bool IsFixed(const ResultGrid& grid, int row, int col) {
    return row < grid.fixedRows() || col < grid.fixedCols();
}

// The colours that the cell shows, marks taken for grounds.
std::string HtmlStyle(const ResultGrid& grid, int row, int col) {
    const CellStyle& style = grid.style(row, col);
    auto ground = style.mark && !grid.cell(row, col).empty() ? style.mark : style.back;
    if (!ground) ground = IsFixed(grid, row, col) ? std::optional(kFixedBack) : grid.gridBack;
    auto ink = style.fore;
    if (!ink && ground && IsDark(*ground)) ink = kInkOnDark;
    std::string css;
    if (ground) css += "background:" + Hex(*ground) + ";";
    if (ink) css += "color:" + Hex(*ink) + ";";
    if (style.bold) css += "font-weight:bold;";
    if (grid.alignment(col) == Align::kCentre) css += "text-align:center;";
    const std::string& text = grid.cell(row, col);
    if (text.size() > 1 && text[0] == '0' && IsNumeric(text)) css += "mso-number-format:'\\@';";
    return css;
}

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    return '"' + Replace(text, "\"", "\"\"") + '"';
}

TablePart PartOf(const ResultGrid& grid, std::span<const int> rows, int left, int right) {
    TablePart part;
    std::set<int> wanted(rows.begin(), rows.end());
    for (int row = 0; row < std::min(grid.fixedRows(), grid.rows()); ++row) wanted.insert(row);
    part.rows.assign(wanted.begin(), wanted.end());
    for (int col = 0; col < grid.cols(); ++col) {
        const bool selected = col >= left && col <= right;
        if (grid.hidden(col) || !(selected || col < grid.fixedCols())) continue;
        part.cols.push_back(col);
        if (selected) ++part.bodyCols;
    }
    part.bodyRows = static_cast<int>(rows.size());
    return part;
}

}  // namespace

std::string SelectionText(const ResultGrid& grid, std::span<const int> rows) {
    const CellRange range = SelectedRange(grid);
    std::string text;
    for (const int row : rows) {
        if (row != rows.front()) text += '\r';
        for (int col = range.left; col <= range.right; ++col) {
            if (col > range.left) text += '\t';
            text += grid.cell(row, col);
        }
    }
    std::replace(text.begin(), text.end(), '\t', ',');
    return text;
}

std::string SelectionConditions(const ResultGrid& grid, std::span<const int> rows) {
    if (grid.row() < 0) return {};
    return Replace(SelectionText(grid, rows), "\r", kConditionLine) + kCondition;
}

TablePart SelectedTable(const ResultGrid& grid, std::span<const int> rows) {
    const CellRange range = SelectedRange(grid);
    return PartOf(grid, rows, range.left, range.right);
}

TablePart WholeTable(const ResultGrid& grid) {
    std::vector<int> rows(static_cast<std::size_t>(grid.rows()));
    std::iota(rows.begin(), rows.end(), 0);
    return PartOf(grid, rows, 0, grid.cols() - 1);
}

std::string TabbedText(const ResultGrid& grid, const TablePart& part) {
    std::string text;
    for (const int row : part.rows) {
        for (const int col : part.cols) {
            if (col != part.cols.front()) text += '\t';
            text += OneLine(grid.cell(row, col));
        }
        text += "\r\n";
    }
    return text;
}

std::string HtmlTable(const ResultGrid& grid, const TablePart& part) {
    std::string html = "<table border=\"1\" style=\"border-collapse:collapse\">\n";
    for (const int row : part.rows) {
        html += "<tr>";
        for (const int col : part.cols) {
            html += "<td style=\"" + HtmlStyle(grid, row, col) + "\">" +
                    Escaped(grid.cell(row, col)) + "</td>";
        }
        html += "</tr>\n";
    }
    return html + "</table>";
}

std::string CsvText(const ResultGrid& grid, const TablePart& part) {
    std::string text = "\xEF\xBB\xBF";
    for (const int row : part.rows) {
        for (const int col : part.cols) {
            if (col != part.cols.front()) text += ',';
            text += Quoted(grid.cell(row, col));
        }
        text += "\r\n";
    }
    return text;
}

}  // namespace ssq
