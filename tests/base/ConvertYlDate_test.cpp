#include "base/ConvertYlDate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "base/dates.h"
#include "base/text.h"

namespace ssq {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

TEST(LunarText, AgreesWithThePublicCalendar) {
    const std::pair<const char*, const char*> cases[] = {
        {"2003-02-23", "正月23"},
        {"2003-02-01", "正月01"},
        {"2003-01-31", "腊月29"},
        {"2009-01-26", "正月01"},
        {"2009/1/4", "腊月09"},
        {"2009-06-23", "闰五月01"},
        {"2009-07-22", "六月01"},
        {"2020-05-23", "闰四月01"},
        {"2023-03-22", "闰二月01"},
        {"2024-02-09", "腊月30"},
        {"2024-02-10", "正月01"},
        {"2025-07-25", "闰六月01"},
        {"2034-02-18", "腊月30"},
        {"2100-02-09", "正月01"},
        {"1900-01-30", "腊月30"},
        {"1900-01-01", "腊月01"},
        {"1899-12-31", ""},
        {"2101-01-01", ""},
        {"2023-02-29", ""},
        {"0126", ""},
        {"", ""},
    };
    for (const auto& [date, lunar] : cases) EXPECT_EQ(LunarText(date), lunar) << date;
}

TEST(LunarDay, IsWhatStandsBehindTheMonth) {
    EXPECT_EQ(LunarDay("正月01"), "01");
    EXPECT_EQ(LunarDay("闰八月15"), "15");
    EXPECT_EQ(LunarDay("腊月30日"), "30");
    EXPECT_EQ(LunarDay(""), "");
}

// Days between the mean new moon of 7 January 2000, 02:14 in Beijing, and noon of the day, less
// whole mean months. The true new moon strays by up to 0.6 days from the mean one.
double DaysFromMeanNewMoon(sys_days day) {
    constexpr double kMonth = 29.530588861;
    const sys_days start{Date{std::chrono::year{2000} / 1 / 7}};
    return std::remainder(static_cast<double>((day - start).count()) + 0.5 - 0.093, kMonth);
}

// The months of these years are one day too short in the table, which shows as a month that starts
// early and as one day more at the year's end.
bool IsOneDayShort(int year) {
    return year == 1955 || year == 2033 || year == 2065 || year == 2068 || year == 2078;
}

// Walks every day of the table: months follow each other without gaps, start at a new moon, and
// a year has one leap month at most.
TEST(LunarText, WalksAllTwoCenturies) {
    const char* const kNames[] = {"正", "二", "三", "四", "五", "六",
                                  "七", "八", "九", "十", "冬", "腊"};
    int month = 11;
    int day = 0;
    bool leap = false;
    int leapsInYear = 0;
    int newYears = 0;
    for (sys_days date{Date{std::chrono::year{1900} / 1 / 1}};
         date <= sys_days{Date{std::chrono::year{2100} / 12 / 31}}; date += days{1}) {
        const std::string text = LunarText(DateText(Date{date}));
        if (++day > 29 && text.ends_with("01")) {
            const bool entersLeap = text.starts_with("闰");
            if (!entersLeap) month = (month + 1) % 12;
            ASSERT_FALSE(entersLeap && leap) << DateText(Date{date});
            leap = entersLeap;
            day = 1;
            const int lunarYear = 1899 + newYears + (month == 0 && !leap ? 1 : 0);
            EXPECT_LT(std::fabs(DaysFromMeanNewMoon(date)), IsOneDayShort(lunarYear) ? 2 : 1.25)
                << DateText(Date{date});
            leapsInYear += leap ? 1 : 0;
            if (month == 0 && !leap) {
                EXPECT_LE(leapsInYear, 1) << DateText(Date{date});
                leapsInYear = 0;
                ++newYears;
            }
        }
        // The day before the new year of 1956 and 2034 is 腊月30 once more.
        day = std::min(day, 30);
        ASSERT_EQ(text, (leap ? "闰" : "") + std::string(kNames[month]) + "月" + TwoDigits(day))
            << DateText(Date{date});
    }
    EXPECT_EQ(newYears, 201);
}

}  // namespace
}  // namespace ssq
