#include "draws/IssueRules.h"

#include "base/numbers.h"
#include "draws/public_fun.h"

namespace ssq {

namespace {

constexpr std::int32_t kIssuesPerYear = 1000;  // of the number's form

}  // namespace

bool IsDrawIssue(std::string_view text) {
    constexpr std::int64_t kLastOfYear = 366;
    const std::int64_t issue = IsIssueText(text) ? WholePart(text) : 0;
    return issue >= kFirstIssue && issue % kIssuesPerYear >= 1 &&
           issue % kIssuesPerYear <= kLastOfYear;
}

bool FitsDate(std::int32_t issue, const Date& date) {
    return static_cast<int>(date.year()) == issue / kIssuesPerYear;
}

Date LatestDrawDate() {
    return AddDays(Today(), 1);
}

bool IsNextDraw(std::int32_t issue, const Date& date, std::int32_t before, const Date& dateBefore) {
    if (issue == before + 1) return true;
    if (issue != (before / kIssuesPerYear + 1) * kIssuesPerYear + 1) return false;
    // Draws are on Tuesday, Thursday and Sunday; in 2003 there were none on Tuesday.
    const int longestGap = before / kIssuesPerYear == 2003 ? 4 : 3;
    return date <= AddDays(dateBefore, longestGap);
}

}  // namespace ssq
