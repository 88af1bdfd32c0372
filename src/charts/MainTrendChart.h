// The red-ball trend chart: one row per draw, its numbers in place, and 32 pattern counters.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct NumberSource;
struct Session;

// Which draws form the series, by chart type.
inline constexpr std::array<std::string_view, 8> kTrendTypes{
    "红球基本走势图",   "红球同期走势图", "红球同尾期走势图", "红球奇数期走势图",
    "红球偶数期走势图", "阳历同期走势图", "阴历同期走势图",   "同星期走势图"};

struct MainTrendChart {
    GridReport report;
    std::string pickRowList;  // grid rows for the user's picks, two digits each, comma separated
};

// Builds the chart of a type (0 to 7); types 1, 2, 5 and 6 take the whole history and only look at
// the range's end. Nothing on a failed query or an empty series ("无数据！"), which the user is
// told.
std::optional<MainTrendChart> BuildMainTrendChart(Session& session, const PeriodRange& range,
                                                  int type);

// A press on a cell: sets the column's number where the cell is empty, empties it otherwise. The
// press counts when the row's text occurs in `pickRowList` and the column is not behind the
// numbers; the search is in the text, so that with rows 101,102,103 row 10 counts too.
void TogglePick(ResultGrid& grid, const std::string& pickRowList, int row, int col);

// The picks as they stand, a source to a row that has some.
std::vector<NumberSource> PickSources(const ResultGrid& grid, const std::string& pickRowList);

// Hides or shows the columns of the numbers; the counters stay.
void HideNumbers(ResultGrid& grid, bool hidden);

}  // namespace ssq
