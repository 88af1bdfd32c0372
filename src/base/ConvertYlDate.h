// The lunar calendar from 1900 to 2100.
#pragma once

#include <string>
#include <string_view>

namespace ssq {

// The lunar date of a calendar date (as ParseDate reads it), such as 正月01, or 闰八月15 in a leap
// month. Empty for what is no date or lies outside 1900 to 2100.
std::string LunarText(std::string_view dateText);

// The day in a lunar date's text: 01 for 正月01, 15 for 闰八月15.
std::string LunarDay(std::string_view lunarText);

}  // namespace ssq
