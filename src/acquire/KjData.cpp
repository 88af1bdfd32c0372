#include "acquire/KjData.h"

#include <algorithm>
#include <optional>

#include "acquire/getWWW.h"
#include "base/ConvertYlDate.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr std::int32_t kFirstIssue = 2003001;  // the first draw of the game
constexpr std::size_t kBalls = kRedsInDraw + 1;
constexpr std::size_t kCells = 3;
constexpr const char* kRepeated = "网站的开奖数据重复，无法更新！";
constexpr std::size_t kLongestEmptyRow = 5;  // characters

enum class PageEnd {
    kMore,    // the next page follows
    kDone,    // the walk has met its end
    kNoData,  // told; the pages before this one still count
    kFault,   // told; nothing counts
};

std::string ListPage(Session& session, int page) {
    return FetchPage(session.host, session.deployment.resultsHost +
                                       "/zjfc/asp_ssq.asp?pagenum=" + std::to_string(page));
}

// A number of one or two digits in the range 1 to `largest`; 0 for anything else.
int BallOf(const std::string& text, int largest) {
    const bool digits = !text.empty() && text.size() <= 2 &&
                        text.find_first_not_of("0123456789") == std::string::npos;
    const auto ball = digits ? static_cast<int>(WholePart(text)) : 0;
    return ball <= largest ? ball : 0;
}

std::vector<std::string> BallTexts(const std::string& numbers) {
    return Split(Replace(Replace(numbers, "+", ","), " ", ""), ",");
}

bool AreBalls(const std::string& numbers) {
    const std::vector<std::string> items = BallTexts(numbers);
    if (items.size() != kBalls) return false;
    RedSet reds;
    for (std::size_t i = 0; i < kRedsInDraw; ++i) reds.Add(BallOf(items[i], kReds));
    return reds.Count() == kRedsInDraw && BallOf(items[kRedsInDraw], kBlues) > 0;
}

// With "-" between year, month and day.
std::string DashedDate(const std::string& date) {
    const std::string dashed = Replace(Replace(date, "年", "-"), "月", "-");
    return Replace(Replace(dashed, "日", ""), " ", "");
}

bool IsDrawDate(const std::string& date) {
    const std::string dashed = DashedDate(date);
    return dashed.find_first_not_of("0123456789-") == std::string::npos && ParseDate(dashed) &&
           !LunarText(dashed).empty();
}

bool IsDrawIssue(const std::string& text) {
    return IsIssueText(text) && WholePart(text) >= kFirstIssue;
}

PageEnd Tell(Session& session, const std::string& text, PageEnd end) {
    session.host.ShowMessage(text);
    return end;
}

// Reads the draw of one row; kMore when it was a new one.
PageEnd ReadRow(Session& session, const std::string& row, std::int32_t localIssue,
                Harvest& harvest) {
    Host& host = session.host;
    const std::vector<std::string> cells = Split(row, "/");
    std::string date = CutBetween(host, "qishu=", "<", Replace(cells[0], "\r\n", "")) + "<";
    date = CutBetween(host, ">", "<", date);
    if (date.empty()) return Tell(session, "无数据！", PageEnd::kNoData);
    if (cells.size() < kCells) {
        return Tell(session, "开奖数据的格式不正确：" + Excerpt(row), PageEnd::kFault);
    }
    const std::string issue =
        Replace(CutBetween(host, "<td>", "<", Replace(cells[1], "\r\n", "")), " ", "");
    if (issue.empty()) return Tell(session, "无数据！", PageEnd::kNoData);
    if (IsNumeric(issue) && WholePart(issue) <= localIssue) return PageEnd::kDone;
    if (!IsDrawIssue(issue)) {
        return Tell(session, "期号不正确：" + Excerpt(issue), PageEnd::kFault);
    }
    const std::string numbers = CutBetween(host, "<td>", "<", Replace(cells[2], "\r\n", ""));
    if (numbers.empty()) return Tell(session, issue + "----无数据！", PageEnd::kNoData);
    if (!IsDrawDate(date)) {
        return Tell(session, issue + "期的开奖日期不正确：" + Excerpt(date), PageEnd::kFault);
    }
    if (!AreBalls(numbers)) {
        return Tell(session, issue + "期的开奖号码不正确：" + Excerpt(numbers), PageEnd::kFault);
    }
    const auto number = static_cast<std::int32_t>(WholePart(issue));
    if (std::find(harvest.NewIssues.begin(), harvest.NewIssues.end(), number) !=
        harvest.NewIssues.end()) {
        return Tell(session, kRepeated, PageEnd::kFault);
    }
    harvest.NewDates.push_back(date);
    harvest.NewNumbers.push_back(numbers);
    harvest.NewIssues.push_back(number);
    return PageEnd::kMore;
}

PageEnd ReadPage(Session& session, std::int32_t localIssue, Harvest& harvest) {
    const std::string page = ListPage(session, ++harvest.PageNumber);
    const std::string text = Replace(
        CutBetween(session.host, "投注额</strong></font></td>", "</table>", page), "\r\n", "");
    if (text.empty()) return Tell(session, "无数据！", PageEnd::kNoData);
    bool anyDraw = false;
    for (const std::string& row : Split(text, "</tr>")) {
        const std::string packed = Replace(Replace(LowerCase(row), "</a>", ""), " ", "");
        if (CharacterCount(row) <= kLongestEmptyRow || Trim(packed).empty()) continue;
        const PageEnd end = ReadRow(session, packed, localIssue, harvest);
        if (end != PageEnd::kMore) return end;
        anyDraw = true;
    }
    if (!anyDraw) return Tell(session, "无数据！", PageEnd::kNoData);
    return harvest.NewIssues.back() == kFirstIssue ? PageEnd::kDone : PageEnd::kMore;
}

void Truncate(Harvest& harvest, int count) {
    const auto size = static_cast<std::size_t>(count);
    harvest.NewDates.resize(size);
    harvest.NewNumbers.resize(size);
    harvest.NewIssues.resize(size);
}

NewDraw DrawOf(const Harvest& harvest, std::size_t index) {
    const std::vector<std::string> items = BallTexts(harvest.NewNumbers[index]);
    NewDraw draw;
    draw.issue = harvest.NewIssues[index];
    draw.date = DashedDate(harvest.NewDates[index]);
    for (std::size_t ball = 0; ball < draw.balls.size(); ++ball) {
        draw.balls[ball] = BallOf(items[ball], kReds);
    }
    draw.blue = BallOf(items[kRedsInDraw], kBlues);
    return draw;
}

// The newest issue of cphm, 0 while there is none; nothing after telling of a failure.
std::optional<std::int32_t> LocalIssue(Session& session) {
    Recordset rows;
    if (!QueryOrTell(session, "Select Max(kjqh) from cphm", rows)) return std::nullopt;
    return static_cast<std::int32_t>(rows.Int(0));
}

}  // namespace

std::string LatestOnlineIssue(Session& session) {
    return CutBetween(session.host, "qishu=", "\"", ListPage(session, 1));
}

bool HarvestPages(Session& session, std::int32_t localIssue, Harvest& harvest) {
    for (;;) {
        const int before = harvest.HarvestCount();
        const PageEnd end = ReadPage(session, localIssue, harvest);
        if (end == PageEnd::kDone) return true;
        if (end == PageEnd::kFault || !session.host.YieldNow()) return false;
        if (end == PageEnd::kNoData) {
            Truncate(harvest, before);
            return harvest.PageNumber > 1;
        }
        const auto last = harvest.NewIssues.end() - 1;
        if (before > 0 && *last >= harvest.NewIssues[static_cast<std::size_t>(before) - 1]) {
            session.host.ShowMessage(kRepeated);
            return false;
        }
    }
}

void InsertDraws(Session& session, const Harvest& harvest) {
    WriteBatch batch(session.host, session.connection);
    std::string errorText;
    for (std::size_t i = harvest.NewIssues.size(); i-- > 0;) {
        if (InsertDraw(session.connection, DrawOf(harvest, i), errorText)) continue;
        TellStoreFault(session, "保存开奖数据失败", errorText);
        return;
    }
    if (!CommitOrTell(session, batch)) return;
    session.host.ShowMessage("共更新" + std::to_string(harvest.HarvestCount()) + "期!");
}

bool UpdateDraws(Session& session) {
    const std::string online = Trim(LatestOnlineIssue(session));
    const auto local = LocalIssue(session);
    if (!local) return false;
    if (!IsDrawIssue(online)) {
        session.host.ShowMessage(online.empty() ? "读不到网站上的最新期号，请稍候再试！"
                                                : "网站上的最新期号不正确：" + Excerpt(online));
        return false;
    }
    if (WholePart(online) <= *local) {
        session.host.ShowMessage("数据为最新，无需更新！");
        return false;
    }
    Harvest harvest;
    if (!HarvestPages(session, *local, harvest)) return false;
    // A second update, started between two pages of this one, has done its work.
    if (LocalIssue(session) != local) return false;
    InsertDraws(session, harvest);
    if (session.host.stopping()) return false;
    RefreshLatestIssue(session);
    return true;
}

}  // namespace ssq
