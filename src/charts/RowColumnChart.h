// The tail row-column chart: the ten tail digits laid out in five rows of two, and the row in which
// each ball's tail falls.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

// The two digits of each of the five rows.
struct TailLayout {
    std::string_view caption;
    std::array<std::string_view, 5> rows;
};

inline constexpr std::array<TailLayout, 4> kTailLayouts{{
    {"五行二列A型排序", {"1,2", "3,4", "5,6", "7,8", "9,0"}},
    {"五行二列B型排序", {"1,3", "5,7", "9,0", "2,4", "6,8"}},
    {"五行二列C型排序", {"1,9", "2,8", "3,7", "4,6", "5,0"}},
    {"五行二列D型排序", {"1,8", "4,3", "7,6", "2,9", "5,0"}},
}};

// All layouts, one line each row.
std::string TailLayoutHelp();

enum class BallOrder { kBySize, kAsDrawn };

// One row per draw of the range, and the rates, which show "-" over no draw. With a layout index
// outside the table no ball has a row. Nothing on a failed query, a malformed issue or a range
// without draws ("无数据！"), which the user is told.
std::optional<GridReport> BuildRowColumnChart(Session& session, const PeriodRange& range,
                                              BallOrder order, int layoutIndex);

}  // namespace ssq
