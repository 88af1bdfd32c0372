// Small operations that more than one panel uses: issues and number lists.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ssq {

class Host;
struct Session;

// First and last issue of a panel's range, as they stand in its combos.
struct PeriodRange {
    std::string start;
    std::string end;
};

// Whether the text has the form of an issue number, YYYYNNN.
bool IsIssueText(std::string_view text);

// Refuses anything but two issue numbers with "期号填写错误！", before it reaches the store.
bool CheckPeriod(Session& session, const PeriodRange& range);

// CheckPeriod, and a reversed range is refused with "结束期号不能小于起始期号！".
bool CheckOrderedPeriod(Session& session, const PeriodRange& range);

// Reads LatestIssue and DrawCount of the session from cphm. On failure the error text is shown
// and both stay as they were.
void RefreshLatestIssue(Session& session);

// All issues, newest first. False after showing the error text.
bool ReadIssues(Session& session, std::vector<std::string>& newestFirst);

// The issue after `issue`, drawn on `date` as stored; nothing where either is none.
std::optional<std::int32_t> IssueAfter(std::string_view issue, std::string_view date);

// The issue after `issue`, which must be a row of cphm. 0 after a failure, which has been shown.
std::int32_t NextIssue(Session& session, const std::string& issue);

// NextIssue, and the reds of that issue, "未开奖" when it has none yet. On failure 0, and
// `drawText` is untouched.
std::int32_t NextIssueDraw(Session& session, const std::string& issue, std::string& drawText);

// 1,2,13 gives 01,02,13; blank text gives empty text.
std::string PadNumberList(std::string_view text);

// Counts the items of the comma text `list` that occur in the draw text; blank items count
// nothing. True when low <= count <= high.
bool CountCommonBalls(std::string_view drawText, std::string_view list, int low, int high,
                      int& count);

// Whether both texts are numbers and `high` is not below `low`; tells the user when not.
bool CheckRange(Host& host, std::string_view low, std::string_view high);

// An issue as the grids show it: without its first two digits.
std::string ShortIssue(std::string_view issue);

}  // namespace ssq
