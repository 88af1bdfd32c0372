#include "acquire/KjData.h"

#include <algorithm>
#include <optional>

#include "acquire/getWWW.h"
#include "base/ConvertYlDate.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Draw.h"
#include "draws/IssueRules.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

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

std::string ListPage(PageSource& site, int page) {
    return site.Fetch("/zjfc/asp_ssq.asp?pagenum=" + std::to_string(page));
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

// Whether the text is a date on which a draw of the issue can have taken place.
bool IsDrawDate(const std::string& text, std::int32_t issue) {
    const std::string dashed = DashedDate(text);
    if (dashed.find_first_not_of("0123456789-") != std::string::npos) return false;
    const auto date = ParseDate(dashed);
    return date && FitsDate(issue, *date) && *date <= LatestDrawDate() &&
           !LunarText(dashed).empty();
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
        return Tell(session, "开奖数据的格式不正确：" + Excerpt(row), PageEnd::kNoData);
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
    const auto number = static_cast<std::int32_t>(WholePart(issue));
    if (!IsDrawDate(date, number)) {
        return Tell(session, issue + "期的开奖日期不正确：" + Excerpt(date), PageEnd::kFault);
    }
    if (!AreBalls(numbers)) {
        return Tell(session, issue + "期的开奖号码不正确：" + Excerpt(numbers), PageEnd::kFault);
    }
    if (std::find(harvest.NewIssues.begin(), harvest.NewIssues.end(), number) !=
        harvest.NewIssues.end()) {
        return Tell(session, kRepeated, PageEnd::kFault);
    }
    harvest.NewDates.push_back(date);
    harvest.NewNumbers.push_back(numbers);
    harvest.NewIssues.push_back(number);
    return PageEnd::kMore;
}

PageEnd ReadPage(Session& session, const std::string& page, std::int32_t localIssue,
                 Harvest& harvest) {
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

// The newest draw on file.
struct LocalDraw {
    std::int32_t issue = 0;  // 0 while there is none
    std::string date;
};

// Nothing after telling of a failure.
std::optional<LocalDraw> ReadLocalDraw(Session& session) {
    Recordset rows;
    if (!QueryOrTell(session, "Select Max(kjqh) from cphm", rows)) return std::nullopt;
    LocalDraw local{static_cast<std::int32_t>(rows.Int(0)), {}};
    if (!QueryOrTell(session, "Select kjDate from cphm where kjqh=?", {rows.Int(0)}, rows)) {
        return std::nullopt;
    }
    local.date = rows.Text(0);
    return local;
}

// Whether the oldest draw in hand is the one behind the newest on file.
bool Follows(const Harvest& harvest, const LocalDraw& local) {
    if (harvest.NewIssues.empty()) return false;
    const auto date = ParseDate(DashedDate(harvest.NewDates.back()));
    const auto localDate = ParseDate(local.date);
    return date && localDate &&
           IsNextDraw(harvest.NewIssues.back(), *date, local.issue, *localDate);
}

// What is in hand counts where no gap stays behind it.
bool EndAtPage(Session& session, const LocalDraw& local, const Harvest& harvest) {
    if (harvest.PageNumber == 1) return false;
    if (Follows(harvest, local)) return true;
    session.host.ShowMessage("开奖列表的第" + std::to_string(harvest.PageNumber) +
                             "页读不到数据，没有更新任何一期，请稍候再试！");
    return false;
}

// Walks the list's pages, newest first, to the first issue not above the local one or to the first
// draw of the game. False when the harvest is not to be used: the user has been told, or the run is
// over. All values have been checked.
bool HarvestPages(Session& session, Run& run, PageSource& site, const LocalDraw& local,
                  Harvest& harvest) {
    constexpr int kLastPage = 32'767;  // of a list that does not end
    while (harvest.PageNumber < kLastPage) {
        const int before = harvest.HarvestCount();
        run.Tell("正在读取开奖列表第 " + std::to_string(++harvest.PageNumber) + " 页…");
        const std::string page = ListPage(site, harvest.PageNumber);
        if (!run.goesOn()) return false;
        const PageEnd end = ReadPage(session, page, local.issue, harvest);
        if (end == PageEnd::kDone) return true;
        if (end == PageEnd::kFault || !run.goesOn()) return false;
        if (end == PageEnd::kNoData) {
            Truncate(harvest, before);
            break;
        }
        const auto last = harvest.NewIssues.end() - 1;
        if (before > 0 && *last >= harvest.NewIssues[static_cast<std::size_t>(before) - 1]) {
            session.host.ShowMessage(kRepeated);
            return false;
        }
    }
    return EndAtPage(session, local, harvest);
}

// Appends the draws to cphm, oldest first. A failure shows the store's text and stops; rows already
// inserted stay.
bool InsertDraws(Session& session, const Harvest& harvest, int& written) {
    WriteBatch batch(session.host, session.connection);
    std::string errorText;
    int inserted = 0;
    for (std::size_t i = harvest.NewIssues.size(); i-- > 0;) {
        if (!InsertDraw(session.connection, DrawOf(harvest, i), errorText)) {
            TellStoreFault(session, "保存开奖数据失败", errorText);
            break;
        }
        ++inserted;
    }
    const bool wantsAll = inserted == harvest.HarvestCount();
    const bool isKept = wantsAll ? CommitOrTell(session, batch) : batch.Commit(errorText);
    if (isKept) written += inserted;
    return wantsAll && isKept;
}

// Tells why there is no newest issue.
void TellOfIssue(Session& session, const PageSource& site, const std::string& online) {
    session.host.ShowMessage(online.empty() ? "读不到网站上的最新期号，请稍候再试！" + site.fault()
                                            : "网站上的最新期号不正确：" + Excerpt(online));
}

}  // namespace

UpdateResult UpdateDraws(Session& session, Run& run, int& written) {
    PageSource site(session, run, session.deployment.resultsHost);
    run.Tell("正在读取开奖列表…");
    const std::string page = ListPage(site, 1);
    if (!run.goesOn()) return {};
    const std::string online = Trim(CutBetween(session.host, "qishu=", "\"", page));
    const auto local = ReadLocalDraw(session);
    if (!local || !run.goesOn()) return EndOfUpdate(site, run, written);
    if (!IsDrawIssue(online)) {
        TellOfIssue(session, site, online);
        return EndOfUpdate(site, run, written);
    }
    if (WholePart(online) <= local->issue) {
        return {.end = UpdateEnd::kDone, .box = "数据为最新，无需更新！", .notes = site.notes()};
    }
    Harvest harvest;
    if (!HarvestPages(session, run, site, *local, harvest)) return EndOfUpdate(site, run, written);
    const bool inserted = InsertDraws(session, harvest, written);
    if (session.host.stopping()) return {};
    RefreshLatestIssue(session);
    if (!inserted) return EndOfUpdate(site, run, written);
    return {.end = UpdateEnd::kDone,
            .written = written,
            .box = "共更新" + std::to_string(written) + "期!",
            .notes = site.notes()};
}

}  // namespace ssq
