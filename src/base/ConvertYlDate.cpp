#include "base/ConvertYlDate.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/dates.h"
#include "base/text.h"

namespace ssq {

namespace {

constexpr int kFirstTableYear = 1899;
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2100;
constexpr std::size_t kItemLength = 7;
constexpr int kMonthsInYear = 12;
constexpr int kShortMonth = 29;
constexpr int kLongMonth = 30;

// One item a year from 1899 to 2100, hexadecimal: characters 1 to 3 are twelve bits, first bit =
// month 1, 1 for 30 days and 0 for 29; character 4 is that bit of the leap month; character 5 the
// leap month's number, 0 for none; characters 6 and 7 the new year's date as decimal MDD.
constexpr std::string_view kLunarTable =
    "AB500D2,4BD0883,4AE00DB,A5700D0,54D0581,D2600D8,D9500CC,655147D,56A00D5,9AD00CA,"
    "55D027A,4AE00D2,A5B0682,A4D00DA,D2500CE,D25157E,B5500D6,56A00CC,ADA027B,95B00D3,"
    "49717C9,49B00DC,A4B00D0,B4B0580,6A500D8,6D400CD,AB5147C,2B600D5,95700CA,52F027B,"
    "49700D2,6560682,D4A00D9,EA500CE,6A9157E,5AD00D6,2B600CC,86E137C,92E00D3,C8D1783,"
    "C9500DB,D4A00D0,D8A167F,B5500D7,56A00CD,A5B147D,25D00D5,92D00CA,D2B027A,A9500D2,"
    "B550781,6CA00D9,B5500CE,535157F,4DA00D6,A5B00CB,457037C,52B00D4,A9A0883,E9500DA,"
    "6AA00D0,AEA0680,AB500D7,4B600CD,AAE047D,A5700D5,52600CA,F260379,D9500D1,5B50782,"
    "56A00D9,96D00CE,4DD057F,4AD00D7,A4D00CB,D4D047B,D2500D3,D550883,B5400DA,B6A00CF,"
    "95A1680,95B00D8,49B00CD,A97047D,A4B00D5,B270ACA,6A500DC,6D400D1,AF40681,AB600D9,"
    "93700CE,4AF057F,49700D7,64B00CC,74A037B,EA500D2,6B50883,5AC00DB,AB600CF,96D0580,"
    "92E00D8,C9600CD,D95047C,D4A00D4,DA500C9,755027A,56A00D1,ABB0781,25D00DA,92D00CF,"
    "CAB057E,A9500D6,B4A00CB,BAA047B,B5500D2,55D0983,4BA00DB,A5B00D0,5171680,52B00D8,"
    "A9300CD,795047D,6AA00D4,AD500C9,5B5027A,4B600D2,96E0681,A4E00D9,D2600CE,EA6057E,"
    "D5300D5,5AA00CB,76A037B,96D00D3,4AB0B83,4AD00DB,A4D00D0,D0B1680,D2500D7,D5200CC,"
    "DD4057C,B5A00D4,56D00C9,55B027A,49B00D2,A570782,A4B00D9,AA500CE,B25157E,6D200D6,"
    "ADA00CA,4B6137B,93700D3,49F08C9,49700DB,64B00D0,68A1680,EA500D7,6AA00CC,A6C147C,"
    "AAE00D4,92E00CA,D2E0379,C9600D1,D550781,D4A00D9,DA400CD,5D5057E,56A00D6,A6C00CB,"
    "55D047B,52D00D3,A9B0883,A9500DB,B4A00CF,B6A067F,AD500D7,55A00CD,ABA047C,A5A00D4,"
    "52B00CA,B27037A,69300D1,7330781,6AA00D9,AD500CE,4B5157E,4B600D6,A5700CB,54E047C,"
    "D1600D2,E960882,D5200DA,DAA00CF,6AA167F,56D00D7,4AE00CD,A9D047D,A2D00D4,D1500C9,"
    "F250279,D5200D1";

constexpr std::array<const char*, kMonthsInYear> kMonthNames = {"正", "二", "三", "四", "五", "六",
                                                                "七", "八", "九", "十", "冬", "腊"};

struct LunarYear {
    int leapMonth = 0;              // 0 = none
    std::array<int, 13> lengths{};  // days of the months in order, the leap month included
    Date newYear;
};

int HexDigit(char c) {
    return c <= '9' ? c - '0' : c - 'A' + 10;
}

LunarYear ReadYear(int year) {
    const auto index = static_cast<std::size_t>(year - kFirstTableYear);
    const std::string_view item = kLunarTable.substr(index * (kItemLength + 1), kItemLength);
    LunarYear lunar;
    lunar.leapMonth = HexDigit(item[4]);
    std::size_t position = 0;
    for (int month = 0; month < kMonthsInYear; ++month) {
        const int bit = HexDigit(item[static_cast<std::size_t>(month / 4)]) >> (3 - month % 4) & 1;
        lunar.lengths[position++] = kShortMonth + bit;
        if (month + 1 == lunar.leapMonth) lunar.lengths[position++] = kShortMonth + (item[3] - '0');
    }
    const int monthAndDay = HexDigit(item[5]) * 16 + HexDigit(item[6]);
    lunar.newYear =
        Date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(monthAndDay / 100)},
             std::chrono::day{static_cast<unsigned>(monthAndDay % 100)}};
    return lunar;
}

int DaysBetween(const Date& from, const Date& to) {
    return static_cast<int>((std::chrono::sys_days{to} - std::chrono::sys_days{from}).count());
}

}  // namespace

std::string LunarText(std::string_view dateText) {
    const auto date = ParseDate(dateText);
    if (!date) return {};
    const int year = static_cast<int>(date->year());
    if (year < kFirstYear || year > kLastYear) return {};

    LunarYear lunar = ReadYear(year);
    if (DaysBetween(lunar.newYear, *date) < 0) lunar = ReadYear(year - 1);
    int day = DaysBetween(lunar.newYear, *date) + 1;
    const auto leap = static_cast<std::size_t>(lunar.leapMonth);
    const std::size_t lastMonth = leap > 0 ? kMonthsInYear : kMonthsInYear - 1;
    std::size_t month = 0;
    while (month < lastMonth && day > lunar.lengths[month]) day -= lunar.lengths[month++];
    // The table's months of five years end one day before the next new year. That day belongs to
    // the last month, whose 30th it is in the calendar.
    day = std::min(day, kLongMonth);
    const bool isLeap = leap > 0 && month == leap;
    if (leap > 0 && month >= leap) --month;
    return (isLeap ? "闰" : "") + std::string(kMonthNames[month]) + "月" + TwoDigits(day);
}

std::string LunarDay(std::string_view lunarText) {
    return Replace(Replace(Characters(lunarText, 3), "月", ""), "日", "");
}

}  // namespace ssq
