// The red wrap: up to 18 numbers for an issue, found by diagonals through the 528 pairs of reds.
#pragma once

#include <array>
#include <bitset>
#include <optional>
#include <span>
#include <vector>

#include "base/RedSet.h"
#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

class Run;
struct Session;

inline constexpr int kRedPairs = 33 * 32 / 2;  // 01,02 is the first, 32,33 the last
inline constexpr int kWrapDepth = 16;          // draws that a row looks at
inline constexpr int kWrapSize = 18;           // numbers shown

// One bit for each pair, in lexicographic order from 0.
using PairSet = std::bitset<kRedPairs>;

// The pairs of which the draw holds neither number.
PairSet MissedPairs(RedSet draw);

// The numbers of the wrap in its order, each once, over what the sixteen draws missed: the first is
// the one compared one step along the diagonal. More than kWrapSize may come back; those behind are
// not shown. A pair heads a diagonal of length n when its neighbours one step further for each draw
// further back were missed by n draws in a row; diagonals count from length 5, longest first.
std::vector<int> RedWrap(const std::array<PairSet, kWrapDepth>& missed);

// The kWrapSize numbers, or fewer, that are shown for the draw behind the draws `before` (newest
// first, at least kWrapDepth).
std::vector<int> RedWrapAfter(std::span<const RedSet> before);

// The wraps of the range and of the next issue. Nothing after telling the user why, or when the run
// was ended.
std::optional<GridReport> BuildRedWrap(Session& session, const PeriodRange& range, Run& run);

}  // namespace ssq
