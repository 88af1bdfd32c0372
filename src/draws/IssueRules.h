// What an issue number can be, and what it tells of the draw's date.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/dates.h"

namespace ssq {

inline constexpr std::int32_t kFirstIssue = 2003001;  // the first draw of the game

// Whether the text is the number of a draw: YYYYNNN from the first one on, NNN from 001 to 366.
bool IsDrawIssue(std::string_view text);

// Whether the date lies in the year that the issue names.
bool FitsDate(std::int32_t issue, const Date& date);

// The last day that a draw heard of today can have: tomorrow, since a site's clock may be ahead.
Date LatestDrawDate();

// Whether no draw lies between the two: the next number of the same year, or the first of the next
// year soon behind.
bool IsNextDraw(std::int32_t issue, const Date& date, std::int32_t before, const Date& dateBefore);

}  // namespace ssq
