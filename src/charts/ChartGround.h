// What the trend charts share: their ground and bands, the columns of the draws and the numbers,
// the discs behind drawn numbers, and their rates.
#pragma once

#include <string>

#include "draws/Draw.h"
#include "ui/ColumnTable.h"

namespace ssq {

// The columns of the numbers 1 to 33 in a chart that shows the draws in place.
inline constexpr int kFirstNumberCol = 3;
inline constexpr int kLastNumberCol = kFirstNumberCol + kReds - 1;

constexpr int NumberCol(int red) {
    return red + kFirstNumberCol - 1;
}

// Discs behind the numbers: a light one under the default text, a dark one under light colours.
inline constexpr Rgb kBall{255, 248, 224};
inline constexpr Rgb kDarkBall{58, 14, 42};

// The three columns that every chart on the ground starts with; they stay in view.
void AddDrawColumns(ColumnTable& columns);

// A grid on the ground with bold headings. Zeros are shown faintly.
ResultGrid MakeChart(std::span<const Column> columns, int rows, int fixedRows);

// The columns of the numbers, which follow those of the draw.
void AddNumberColumns(ColumnTable& columns);
void ShapeNumberColumns(ResultGrid& grid);

void FillDrawCells(ResultGrid& grid, int row, const Draw& draw);

// The red in its column, on a disc.
void ShowBall(ResultGrid& grid, int row, int red);

// The bands over the numbers 1 to 7, 15 to 21 and 29 to 33.
void BandNumbers(ResultGrid& grid, int row);

// Of the group around a chart.
std::string DrawsCaption(std::size_t draws);

// The share of `whole` rows in percent, "-" where `whole` is 0. Charts take the hundredfold first,
// where the other grids multiply the share: 23 of 160 are 14.38 here and 14.37 there.
void WriteChartRates(const ColumnCounts& counts, ResultGrid& grid, int row, int firstCol,
                     int lastCol, int whole);

// WriteChartRates in the small type of the charts' rates.
void WriteSmallRates(const ColumnCounts& counts, ResultGrid& grid, int row, int firstCol,
                     int lastCol, int whole);

}  // namespace ssq
