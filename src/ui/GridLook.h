// The colours of a grid where a cell has none of its own, on screen and in a worksheet.
#pragma once

#include "ui/ResultGrid.h"

namespace ssq {

inline constexpr Rgb kGridLine{0xD8, 0xDE, 0xDE};
inline constexpr Rgb kFixedBack{0xE2, 0xEA, 0xE7};
inline constexpr Rgb kFixedLine{0xBC, 0xC9, 0xC4};
inline constexpr Rgb kInkOnDark{0xFA, 0xEE, 0xF4};

// Whether texts on the ground need the light ink to be read.
constexpr bool IsDark(Rgb ground) {
    constexpr int kDarkGrey = 105;  // between the two chart colours: green takes dark text
    return (ground.red * 11 + ground.green * 16 + ground.blue * 5) / 32 < kDarkGrey;
}

}  // namespace ssq
