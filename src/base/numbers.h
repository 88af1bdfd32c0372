// Numbers in texts, as a user of Chinese Windows expects them, and the rates shown in grids.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ssq {

// The leading number of a text (blanks skipped); 0 where there is none, and where it is beyond the
// range of a double.
double Val(std::string_view text);

// The value of a text that is one number as a whole: sign, digit groups ("1,234,567"), decimals
// and exponent are allowed, blanks around it too. Empty when it is not one, and
// when it is beyond the range of a double.
std::optional<double> ParseNumber(std::string_view text);

bool IsNumeric(std::string_view text);

// The whole-number part of a text that is a number, towards zero; 0 when it is none, and held to
// the range of 64 bits.
std::int64_t WholePart(std::string_view text);

// The same of a number.
std::int64_t WholePart(double value);

// The leading whole numbers of the items of a comma text, held to the range of an int.
std::vector<int> IntList(std::string_view list);

// The value held to the range of an int.
int ToInt(std::int64_t value);

// Whole numbers as comma text without padding, such as 0,7,13, and back: nothing when an item is
// no whole number from `low` to `high`, or there is none.
std::string NumberListText(std::span<const int> numbers);
std::optional<std::vector<int>> ParseNumberList(std::string_view text, int low, int high);

// Two decimals, ties to the even digit.
double Round(double value);

// Round(part / whole * 100).
double Percent(double part, double whole);

// Percent as cell text; "-" where `whole` is 0.
std::string RateText(double part, double whole);

// How a number becomes the text of a cell: shortest form without trailing zeros and without an
// exponent in ordinary sizes; "-" for what is not finite (a rate over nothing).
std::string NumberText(double value);

}  // namespace ssq
