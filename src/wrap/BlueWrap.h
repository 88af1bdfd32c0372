// The blue wrap: a few blues for an issue, by the blues of the four issues before it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

// Draws that a wrap looks at.
inline constexpr int kDrawsInBlueWrap = 4;

struct BlueWrapResult {
    std::string
        text;  // two-digit numbers and commas, in the wrap's order; a number may stand twice
    bool Near = false;
};

// `a` is the newest of the four blues, `d` the oldest. Near its predecessors the last blue is
// wrapped by its neighbourhood, else by all that lies outside it.
BlueWrapResult BlueWrap(int a, int b, int c, int d);

// The first nine items of the wrap, which are those that are shown and judged.
std::vector<std::string> ShownItems(const BlueWrapResult& wrap);

// The wraps of the range, judged, and the one of the next issue. Nothing after telling the user
// why.
std::optional<GridReport> BuildBlueWrap(Session& session, const PeriodRange& range);

}  // namespace ssq
