// The colours of a grid where a cell has none of its own, on screen and in a worksheet.
#pragma once

#include "ui/ResultGrid.h"

namespace ssq {

inline constexpr Rgb kGridLine{0xD8, 0xDE, 0xDE};
inline constexpr Rgb kFixedBack{0xE2, 0xEA, 0xE7};
inline constexpr Rgb kFixedLine{0xBC, 0xC9, 0xC4};

}  // namespace ssq
