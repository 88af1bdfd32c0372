// How hot each red was in the draws before a draw, and at which places of that order its reds fell.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "draws/Draw.h"
#include "draws/NumberSource.h"
#include "ui/ColumnTable.h"

namespace ssq {

class Run;

// The 33 reds, hottest first. Equal counts stand in ascending order of number.
struct HeatOrder {
    std::array<int, kReds> numbers{};
    int drawn = 0;  // how many of them, from the front, occur in the window at all
};

// Counts the balls of the draws of the window; their order does not matter.
HeatOrder HeatOrderOf(std::span<const Draw> window);

// The window that takes as many draws as there are before the last issue.
inline constexpr const char* kWholeHistory = "全部";

// The hottest and the coldest third of the reds, by the window before a draw; as many draws, or
// kWholeHistory.
std::vector<NumberSource> HeatSources(const std::string& window);

struct HeatRequest {
    PeriodRange range;
    std::string window;  // how many draws a row looks back, or kWholeHistory
};

struct HeatOutcome {
    std::optional<GridReport> report;  // after a failure with the rows written so far
    bool failed = false;               // a box has told why
};

// One row for each draw of the range with the heat order of the draws before it, a row with the
// order for the next draw, and the share of rows that hit each zone. The scratch table rtoc holds
// the balls of the last window at the end. An issue that is none is refused with a message, and
// there is nothing to show.
HeatOutcome BuildHeatRanking(Session& session, const HeatRequest& request, Run& run);

// How the heat position of a number moved over the rows of a grid of BuildHeatRanking.
struct HeatCourse {
    std::string range;              // first and last issue
    std::vector<double> positions;  // 1 to 33, the row of the next draw included
    std::vector<std::string>
        labels;  // the row, or "●" where the row's second text holds the number
};
HeatCourse HeatCourseOf(const ResultGrid& grid, const std::string& number);

// Whether the text is one of 01 to 33, as the heat order shows them.
bool IsRedText(const std::string& text);

}  // namespace ssq
