#include "draws/public_fun.h"

#include <gtest/gtest.h>

#include "support/TestDatabase.h"

namespace ssq {
namespace {

TEST(NextIssue, TurnsTheYearOnceTheShortStepPassesItsEnd) {
    const struct {
        int issue;
        const char* date;
        int next;
    } kCases[] = {
        {2006154, "2006-12-31", 2007001},  // Sunday and a day
        {2013154, "2013-12-31", 2014001},  // Tuesday and a day
        {2009154, "2009-12-31", 2010001},  // Thursday and two days
        {2010153, "2010-12-30", 2011001},
        {2005153, "2005-12-29", 2005154},  // reaches the 31st only
        {2008153, "2008-12-30", 2008154},
        {2018153, "2018-12-31", 2018154},  // a Monday stays where it is
    };
    TestDatabase database;
    for (const auto& c : kCases) {
        database.AddDraw(c.issue, c.date, "01,02,03,04,05,06", 7);
        EXPECT_EQ(NextIssue(database.session(), std::to_string(c.issue)), c.next);
    }
}

}  // namespace
}  // namespace ssq
