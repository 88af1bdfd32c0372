// The blue wrap: a few blues for an issue, by the blues of the four issues before it.
#pragma once

#include <optional>
#include <string>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

struct BlueWrapResult {
    std::string
        text;  // two-digit numbers and commas, in the wrap's order; a number may stand twice
    bool Near = false;
};

// `a` is the newest of the four blues, `d` the oldest. Near its predecessors the last blue is
// wrapped by its neighbourhood, else by all that lies outside it.
BlueWrapResult BlueWrap(int a, int b, int c, int d);

// The wraps of the range, judged, and the one of the next issue. Nothing after telling the user
// why.
std::optional<GridReport> BuildBlueWrap(Session& session, const PeriodRange& range);

}  // namespace ssq
