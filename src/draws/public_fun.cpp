#include "draws/public_fun.h"

#include <algorithm>

#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr std::size_t kIssueDigits = 7;

// Days from a draw to the last day that still counts into its year: one short of the real gap to
// the next draw.
int StepAfter(int weekday) {
    constexpr int kSunday = 1;
    constexpr int kTuesday = 3;
    constexpr int kThursday = 5;
    if (weekday == kSunday || weekday == kTuesday) return 1;
    return weekday == kThursday ? 2 : 0;
}

}  // namespace

bool IsIssueText(std::string_view text) {
    return text.size() == kIssueDigits &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool CheckPeriod(Session& session, const PeriodRange& range) {
    if (IsIssueText(range.start) && IsIssueText(range.end)) return true;
    session.host.ShowMessage("期号填写错误！");
    return false;
}

bool CheckOrderedPeriod(Session& session, const PeriodRange& range) {
    if (!CheckPeriod(session, range)) return false;
    if (range.end >= range.start) return true;
    session.host.ShowMessage("结束期号不能小于起始期号！");
    return false;
}

void RefreshLatestIssue(Session& session) {
    Recordset rows;
    if (!QueryOrTell(session, "Select max(kjqh),count(kjqh) from cphm ", rows)) return;
    session.LatestIssue = rows.Text(0);
    session.DrawCount = static_cast<std::int32_t>(rows.Int(1));
}

bool ReadIssues(Session& session, std::vector<std::string>& newestFirst) {
    Recordset rows;
    if (!QueryOrTell(session, "Select kjqh from cphm order by kjqh desc", rows)) return false;
    newestFirst.clear();
    for (; !rows.eof(); rows.MoveNext()) newestFirst.push_back(rows.Text(0));
    return true;
}

std::optional<std::int32_t> IssueAfter(std::string_view issue, std::string_view date) {
    const auto drawn = ParseDate(date);
    if (!drawn || !IsIssueText(issue)) return std::nullopt;
    const Date reached = AddDays(*drawn, StepAfter(Weekday(*drawn)));
    const auto number = static_cast<std::int32_t>(WholePart(issue));
    constexpr std::int32_t kIssuesPerYear = 1000;
    return reached.year() == drawn->year() ? number + 1
                                           : (number / kIssuesPerYear + 1) * kIssuesPerYear + 1;
}

std::int32_t NextIssue(Session& session, const std::string& issue) {
    if (!IsIssueText(issue)) {
        session.host.ShowMessage("期号填写错误！");
        return 0;
    }
    Recordset rows;
    if (!QueryOrTell(session, "select kjdate from cphm where kjqh=" + issue, rows)) return 0;
    const auto next = IssueAfter(issue, rows.Text(0));
    if (!next) {
        session.host.ShowMessage(rows.eof() ? "期号填写错误！" : "没有" + issue + "期的开奖日期！");
    }
    return next.value_or(0);
}

std::int32_t NextIssueDraw(Session& session, const std::string& issue, std::string& drawText) {
    const std::int32_t next = NextIssue(session, issue);
    if (next == 0) return 0;
    Recordset rows;
    if (!QueryOrTell(session, "Select kjhm from cphm where kjqh=" + std::to_string(next), rows)) {
        return 0;
    }
    drawText = rows.eof() ? "未开奖" : rows.Text(0);
    return next;
}

std::string PadNumberList(std::string_view text) {
    if (Trim(text).empty()) return {};
    std::vector<std::string> items = Split(text, ",");
    for (std::string& item : items) item = TwoDigits(WholePart(item));
    return Join(items, ",");
}

bool CountCommonBalls(std::string_view drawText, std::string_view list, int low, int high,
                      int& count) {
    count = 0;
    for (const std::string& item : Split(list, ",")) {
        if (!Trim(item).empty() && Contains(drawText, TwoDigits(WholePart(item)))) ++count;
    }
    return low <= count && count <= high;
}

bool CheckRange(Host& host, std::string_view low, std::string_view high) {
    const auto first = ParseNumber(low);
    const auto last = ParseNumber(high);
    if (!first || !last) {
        host.ShowMessage("请输入数字！");
        return false;
    }
    if (*last < *first) {
        host.ShowMessage("起始值不能大于结束值！");
        return false;
    }
    return true;
}

std::string ShortIssue(std::string_view issue) {
    return Characters(issue, 3);
}

}  // namespace ssq
