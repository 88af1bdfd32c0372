#include "charts/ChartGround.h"

#include "base/numbers.h"
#include "base/text.h"
#include "ui/palette.h"

namespace ssq {

void AddDrawColumns(ColumnTable& columns) {
    for (const char* heading : {"期号", "红球号码", "蓝"}) columns.push_back({heading});
}

void AddNumberColumns(ColumnTable& columns) {
    AddTwoDigits(columns, 1, kReds, 0);
}

ResultGrid MakeChart(std::span<const Column> columns, int rows, int fixedRows) {
    constexpr int kFixedCols = 3;
    ResultGrid grid = MakeGrid(columns, rows, fixedRows, kFixedCols);
    grid.gridBack = kChartGround;
    grid.gridLines = kBlackLines;
    grid.paleText = "0";
    for (int col = 0; col < grid.cols(); ++col) grid.SetBold(fixedRows - 1, col);
    return grid;
}

void ShapeNumberColumns(ResultGrid& grid) {
    grid.SetEvenCols(kFirstNumberCol, kLastNumberCol);
    grid.SetNames(kFirstNumberCol, kLastNumberCol);
}

void FillDrawCells(ResultGrid& grid, int row, const Draw& draw) {
    grid.SetCell(row, 0, ShortIssue(draw.issue));
    grid.SetCell(row, 1, draw.reds);
    grid.SetCell(row, 2, TwoDigits(draw.blue));
}

void ShowBall(ResultGrid& grid, int row, int red) {
    grid.SetCell(row, NumberCol(red), TwoDigits(red));
    grid.SetBold(row, NumberCol(red));
    grid.SetMark(row, NumberCol(red), kBall);
}

void BandNumbers(ResultGrid& grid, int row) {
    for (int red = 1; red <= kReds; ++red) {
        if (NumberZone(red) % 2 == 1) grid.SetBack(row, NumberCol(red), kChartBand);
    }
}

std::string DrawsCaption(std::size_t draws) {
    return "走势图结果  [共" + std::to_string(draws) + "期]";
}

void WriteChartRates(const ColumnCounts& counts, ResultGrid& grid, int row, int firstCol,
                     int lastCol, int whole) {
    for (int col = firstCol; col <= lastCol; ++col) {
        grid.SetCell(row, col, NumberText(Round(100.0 * counts[col] / whole)));
    }
}

void WriteSmallRates(const ColumnCounts& counts, ResultGrid& grid, int row, int firstCol,
                     int lastCol, int whole) {
    constexpr int kPoints = 8;
    WriteChartRates(counts, grid, row, firstCol, lastCol, whole);
    for (int col = firstCol; col <= lastCol; ++col) {
        grid.SetFont(row, col, "Arial Narrow", kPoints);
    }
}

}  // namespace ssq
