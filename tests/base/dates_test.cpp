#include "base/dates.h"

#include <gtest/gtest.h>

namespace ssq {
namespace {

TEST(Dates, ReadsWhatIsADateOfTheCalendar) {
    const std::pair<const char*, const char*> cases[] = {
        {"2009-01-04", "2009-01-04"},
        {"2009-1-4", "2009-01-04"},
        {" 2009/1/4 ", "2009-01-04"},
        {"2024-2-29", "2024-02-29"},
        {"2009-1-4 21:30:00", "2009-01-04"},
        {"2023-02-29", ""},
        {"2009-13-01", ""},
        {"2009-1", ""},
        {"2009-1-4-5", ""},
        {"09-1-4", ""},
        {"2009--4", ""},
        {"2009-+1-4", ""},
        {"今天", ""},
        {"", ""},
    };
    for (const auto& [text, expected] : cases) {
        const auto date = ParseDate(text);
        EXPECT_EQ(date ? DateText(*date) : "", expected) << text;
    }
}

TEST(Dates, KnowsWeekdaysAndStepsOverTheYearsEnd) {
    const Date sunday = ParseDate("2006-12-31").value();
    EXPECT_EQ(Weekday(sunday), 1);
    EXPECT_EQ(Weekday(AddDays(sunday, -1)), 7);
    EXPECT_EQ(DateText(AddDays(sunday, 1)), "2007-01-01");
}

}  // namespace
}  // namespace ssq
