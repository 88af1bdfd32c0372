// The number segments: the ordered list of all combinations of six reds cut into 16 equal parts,
// and in which of them each draw fell.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/combinations.h"
#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

inline constexpr int kSegments = 16;
inline constexpr std::int32_t kSegmentWidth = kCombinationCount / kSegments;
static_assert(kSegments * kSegmentWidth == kCombinationCount);

// The segment (1 to 16) of a place from 1 to kCombinationCount, 0 for any other.
constexpr int SegmentOf(std::int64_t place) {
    if (place < 1 || place > kCombinationCount) return 0;
    return static_cast<int>((place - 1) / kSegmentWidth) + 1;
}

// First and last place of each segment, one line each below a heading.
std::string SegmentList();

// Brings hm1107568 level with the draws; rows that are there are never changed. False after
// showing the store's text: so ends a draw whose reds are not ascending, since it has no segment
// to be stored under.
bool UpdateSegmentTable(Session& session);

// The chart of the range from hm1107568, after UpdateSegmentTable has done what it can. Rates over
// no draw show "-". Nothing on a failed query or a malformed issue, which the user is told.
std::optional<GridReport> BuildSegmentChart(Session& session, const PeriodRange& range);

}  // namespace ssq
