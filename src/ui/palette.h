// Colours that several analyses share.
#pragma once

#include "ui/ResultGrid.h"

namespace ssq {

inline constexpr Rgb kStripe{236, 241, 241};      // every second group of columns
inline constexpr Rgb kDrawnMark{215, 133, 110};   // a number that was drawn
inline constexpr Rgb kRepeatMark{171, 166, 239};  // a hit or a repeat
inline constexpr Rgb kSkyMark{187, 223, 230};     // a value worth a look
inline constexpr Rgb kBlueInk{0, 0, 250};         // texts that stand out on the ground
inline constexpr Rgb kBlackLines{0, 0, 0};

// The ground of the chart panels and the bands of columns on it.
inline constexpr Rgb kChartGround{51, 153, 102};
inline constexpr Rgb kChartBand{153, 51, 102};

}  // namespace ssq
