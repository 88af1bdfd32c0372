#include "acquire/Sales.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "acquire/getWWW.h"
#include "base/RedSet.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

constexpr int kNumbers = RedSet::kLargest;
constexpr int kLastHot = 11;   // position
constexpr int kLastWarm = 22;  // position
constexpr const char* kRowMark = "<tr class=\"tr1\" id=\"tr_2\">";
constexpr const char* kRunningMark = "当前期：";
constexpr const char* kRunningPattern = "当(.+)?前(.+)?期(.+)?：";

// a1,a2,...,a33
std::string NumberColumns() {
    std::vector<std::string> names;
    for (int i = 1; i <= kNumbers; ++i) names.push_back("a" + std::to_string(i));
    return Join(names, ",");
}

// One row of the site's table, as it goes into o_sale.
struct SalesRow {
    std::string values;  // issue and numbers, each followed by a comma
    std::string hm;      // winning numbers
    std::string pos;     // their positions
    int q1 = 0;
    int q2 = 0;
    int q3 = 0;
    std::int64_t current = 0;  // issue; 0 while the row has none
    std::string fault;
};

void ReadIssueCell(Host& host, const std::string& cell, SalesRow& row) {
    row.values += "20" + CutBetween(host, ">", "<", cell) + ",";
    const std::string normal = RegexReplace(kRunningPattern, cell, kRunningMark);
    const std::string issue = "20" + Replace(CutBetween(host, ">", "<", normal), kRunningMark, "");
    if (IsIssueText(issue)) {
        row.current = WholePart(issue);
    } else {
        row.fault = "销售数据的期号不正确：" + Excerpt(issue);
    }
}

void ReadWinner(Host& host, const std::string& cell, int position, SalesRow& row) {
    const std::string ball = CutBetween(host, ">", "<", cell);
    row.values += ball + ",";
    row.hm += ball + ",";
    row.pos += std::to_string(position) + ",";
    if (position <= kLastHot) {
        ++row.q1;
    } else if (position <= kLastWarm) {
        ++row.q2;
    } else if (position <= kNumbers) {
        ++row.q3;
    }
}

SalesRow ReadRow(Host& host, const std::string& rowText) {
    constexpr std::string_view kSeparatorCell =
        "<td width=\"1\" align=\"middle\" bgcolor=\"#FFFFFF\" style=\"padding:0\">&nbsp;</td>";
    std::string segment = RegexCollect(R"(<td.*?(?!<\/td>)([\s\S]*)<\/td>)", rowText);
    segment = Replace(segment, std::string(kSeparatorCell) + std::string(kMatchEnd), "");
    const std::vector<std::string> cells = Split(segment, "</td>");
    SalesRow row;
    for (std::size_t c = 0; c < cells.size(); ++c) {
        const std::string cell = cells[c] + "<";
        if (Contains(cell, "class=\"tr2\"") || Contains(cell, "class=\"tr1\"")) {
            ReadIssueCell(host, cell, row);
        }
        if (Contains(cell, "nowrap")) row.values += CutBetween(host, ">", "<", cell) + ",";
        if (Contains(cell, "td_z")) ReadWinner(host, cell, static_cast<int>(c), row);
    }
    if (CharacterCount(row.hm) > 1) row.hm.pop_back();
    return row;
}

// Whether the values are the issue and every red number once; nothing else may go to the store.
bool IsComplete(const SalesRow& row) {
    const std::vector<std::string> items = Split(row.values, ",");
    if (items.size() != kNumbers + 2 || items[0] != std::to_string(row.current)) return false;
    RedSet numbers;
    for (int i = 1; i <= kNumbers; ++i) {
        const std::string& item = items[static_cast<std::size_t>(i)];
        if (item.size() > 2 || item.find_first_not_of("0123456789") != std::string::npos) {
            return false;
        }
        numbers.Add(static_cast<int>(WholePart(item)));
    }
    return numbers.Count() == kNumbers;
}

std::string InsertStatement(const SalesRow& row, bool running) {
    const std::string q1 = std::to_string(row.q1);
    const std::string q2 = std::to_string(row.q2);
    const std::string q3 = std::to_string(row.q3);
    return "Insert into o_sale(kjqh," + NumberColumns() + ",q1,q2,q3,q3b,kjhm,hmpos" +
           (running ? ",iscurrent" : "") + ") values(" + row.values + q1 + "," + q2 + "," + q3 +
           ",'" + q1 + ":" + q2 + ":" + q3 + "','" + row.hm + "','" + row.pos + "'" +
           (running ? ",1" : "") + ")";
}

// Stores one row of the page; false when the update must stop.
bool StoreRow(Session& session, const std::string& rowText, std::int64_t maxIssue,
              std::int64_t nextIssue, int& written) {
    SalesRow row = ReadRow(session.host, rowText);
    if (row.fault.empty() && row.current <= maxIssue) return true;
    row.values = RegexReplace(kRunningPattern, row.values, "");
    if (row.fault.empty() && !IsComplete(row)) {
        row.fault = std::to_string(row.current) + "期的销售数据不正确！";
    }
    if (!row.fault.empty()) {
        session.host.ShowMessage(row.fault);
        return false;
    }
    if (!ExecuteOrTell(session, InsertStatement(row, row.current >= nextIssue))) return false;
    ++written;
    return true;
}

std::string SelectSales(const std::string& condition) {
    return "Select  kjqh," + NumberColumns() + ",q3b,kjhm,hmpos from o_sale where " + condition;
}

constexpr int kFixedRows = 2;
constexpr int kCols = kNumbers + 3;
constexpr int kRatioCol = kNumbers + 1;
constexpr int kWinnersCol = kNumbers + 2;
constexpr Rgb kWarmBack{208, 234, 232};
constexpr Rgb kWinnerBack{230, 153, 153};

void WriteHeaders(ResultGrid& grid) {
    grid.SetCell(1, 0, "开奖期号");
    for (int position = 1; position <= kNumbers; ++position) {
        const char* third = position <= kLastHot ? "热号" : position <= kLastWarm ? "温号" : "冷号";
        grid.SetCell(0, position, third);
        grid.SetCell(1, position, TwoDigits(position));
    }
    grid.SetCell(1, kRatioCol, "三区比");
    grid.SetCell(1, kWinnersCol, "开奖号码");
}

void WriteNumbers(const Recordset& rows, int row, ResultGrid& grid) {
    grid.SetCell(row, 0, rows.Text("kjqh"));
    for (int j = 1; j <= kNumbers; ++j) grid.SetCell(row, j, TwoDigits(rows.Int(j)));
}

void WriteDrawn(const Recordset& rows, int row, ResultGrid& grid) {
    const std::string winners = rows.Text("kjhm");
    WriteNumbers(rows, row, grid);
    for (int j = 1; j <= kNumbers; ++j) {
        if (j > kLastHot && j <= kLastWarm) grid.SetBack(row, j, kWarmBack);
        if (Contains(winners, grid.cell(row, j))) grid.SetBack(row, j, kWinnerBack);
    }
    grid.SetCell(row, kRatioCol, rows.Text("q3b"));
    grid.SetCell(row, kWinnersCol, winners);
}

void SetLayout(ResultGrid& grid) {
    constexpr int kRowHeight = 300;
    constexpr int kNumberWidth = 460;
    constexpr int kWinnersWidth = 1760;
    grid.SetAllRowHeights(kRowHeight);
    grid.SetColWidths(1, kNumbers, kNumberWidth);
    grid.SetColWidth(kWinnersCol, kWinnersWidth);
    grid.SetAllAlignments(Align::kCentre);
    grid.SetMergeRow(0);
    for (int col = 1; col <= kNumbers; ++col) grid.SetMergeCol(col);
}

}  // namespace

UpdateResult UpdateSales(Session& session, Run& run) {
    PageSource site(session, run, session.deployment.salesHost);
    int written = 0;
    const auto ended = [&] { return EndOfUpdate(site, run, written); };
    if (!run.goesOn()) return {};
    if (!ExecuteOrTell(session, "delete from o_sale where isCurrent=1")) return ended();
    Recordset stored;
    if (!QueryOrTell(session, "Select max(kjqh),count(kjqh) from o_sale", stored)) return ended();
    const std::int64_t maxIssue = stored.Int(0);
    const std::int32_t nextIssue = NextIssue(session, session.LatestIssue);
    if (nextIssue == 0) return ended();
    constexpr std::int64_t kDrawsWithoutSales = 202;  // the oldest draws, which the site lacks
    const std::int64_t want = session.DrawCount - kDrawsWithoutSales - stored.Int(1);
    const std::string page =
        site.Fetch("/pages/info/ssq/inc/red_fsfx_inc.php?expect=" + std::to_string(want));
    if (!run.goesOn()) return {};
    const std::string table = CutBetween(session.host, kRowMark, "</table>", page);
    WriteBatch batch(session.host, session.connection);
    for (const std::string& rowText : Split(table, kRowMark)) {
        if (!run.Yield()) return {};
        if (!StoreRow(session, rowText, maxIssue, nextIssue, written)) return ended();
    }
    if (!CommitOrTell(session, batch)) return ended();
    UpdateResult result = ended();
    if (result.end == UpdateEnd::kFault && !table.empty()) result.end = UpdateEnd::kDone;
    result.box = "更新完成,共更新" + std::to_string(want - 1) + "期！";
    return result;
}

std::optional<GridReport> BuildSalesTable(Session& session, const PeriodRange& range) {
    Recordset rows;
    if (!CheckPeriod(session, range) ||
        !QueryOrTell(session,
                     SelectSales(" kjqh>=" + range.start + " and kjqh<=" + range.end +
                                 "   order by kjqh asc"),
                     rows)) {
        return std::nullopt;
    }
    const int runningRow = kFixedRows + rows.recordcount();
    ResultGrid grid(runningRow + 1, kCols, kFixedRows, 1);
    SetLayout(grid);
    WriteHeaders(grid);
    for (int row = kFixedRows; !rows.eof(); rows.MoveNext()) WriteDrawn(rows, row++, grid);
    grid.footRow = runningRow;
    Recordset running;
    if (QueryOrTell(session, SelectSales("iscurrent=1 order by kjqh asc "), running) &&
        !running.eof()) {
        WriteNumbers(running, runningRow, grid);
    }
    return GridReport{std::move(grid), {}};
}

}  // namespace ssq
