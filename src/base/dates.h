// Calendar dates of draws, and their texts.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace ssq {

using Date = std::chrono::year_month_day;

// Reads year, month and day separated by "-" or "/", such as 2009-01-04 or 2009/1/4; a time of day
// behind a blank is passed over. Empty for what is no date of the calendar.
std::optional<Date> ParseDate(std::string_view text);

// "yyyy-mm-dd".
std::string DateText(const Date& date);

// 1 = Sunday .. 7 = Saturday.
int Weekday(const Date& date);

Date AddDays(const Date& date, int days);

// The local date.
Date Today();

// Local date and time as "yyyy-mm-dd hh:mm:ss".
std::string NowText();

}  // namespace ssq
