#include "workbench/NumberCount.h"

#include <optional>
#include <vector>

#include "base/RedSet.h"
#include "base/Regex.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"
#include "workbench/Forecast.h"
#include "workbench/FormulaStatistics.h"

namespace ssq {

namespace {

constexpr Rgb kDrawnBack{0xD7, 0x85, 0x6E};
constexpr int kFirstNumberCol = 2;

bool Refuse(Session& session, const std::string& text) {
    session.host.ShowMessage(text);
    return false;
}

std::optional<ShiftFormula> FormulaOfKey(const std::string& key) {
    for (int index = 0; index < kFormulaCount; ++index) {
        if (FormulaKey(FormulaAt(index)) == key) return FormulaAt(index);
    }
    return std::nullopt;
}

// The numbers of all formulas in the grid as one comma text. Rows without a formula, which a low
// threshold lets pass, name none.
std::string NamedNumbers(const ResultGrid& filtered, const std::vector<std::string>& draws) {
    std::vector<std::string> named;
    for (int row = 1; row < filtered.rows(); ++row) {
        if (const auto formula = FormulaOfKey(filtered.cell(row, kKeyColumn))) {
            named.push_back(ForecastNumbers(draws, *formula));
        }
    }
    return Join(named, ",");
}

bool StoreCounts(Session& session, const std::string& named) {
    WriteBatch batch(session.host, session.connection);
    if (!ExecuteOrTell(session, "Delete from hsort")) return false;
    for (int number = 1; number <= RedSet::kLargest; ++number) {
        const std::string hm = TwoDigits(number);
        std::string sql = "Insert into hSort(hm,cs) values('" + hm + "',";
        sql += std::to_string(RegexCount(hm, named)) + ")";
        if (!ExecuteOrTell(session, sql)) return false;
    }
    return CommitOrTell(session, batch);
}

ResultGrid EmptyGrid(const NextDraw& next) {
    ResultGrid grid(3, kFirstNumberCol + RedSet::kLargest, 1, 2);
    grid.SetAllAlignments(Align::kCentre);
    grid.SetAllRowHeights(300);
    grid.SetRowHeight(0, 400);
    grid.SetColWidth(0, 750);
    grid.SetColWidth(1, 1800);
    grid.SetColWidths(kFirstNumberCol, grid.cols() - 1, 500);
    grid.SetCell(0, 0, "开奖期号");
    grid.SetCell(0, 1, "开奖号码");
    for (int number = 1; number <= RedSet::kLargest; ++number) {
        grid.SetCell(0, kFirstNumberCol + number - 1, std::to_string(number));
    }
    grid.SetCell(1, 0, next.issue());
    grid.SetCell(1, 1, next.drawText());
    grid.SetCell(2, 1, "次数");
    return grid;
}

bool FillCounts(Session& session, const NextDraw& next, ResultGrid& grid) {
    Recordset rows;
    if (!QueryOrTell(session, "Select hm,cs from hsort order by cs desc", rows)) return false;
    for (int col = kFirstNumberCol; !rows.eof(); rows.MoveNext(), ++col) {
        const std::string hm = rows.Text("hm");
        grid.SetCell(1, col, hm);
        grid.SetCell(2, col, rows.Text("cs"));
        if (Contains(next.drawText(), hm)) grid.SetBack(1, col, kDrawnBack);
    }
    return true;
}

}  // namespace

bool CountNumbers(Session& session, const ResultGrid& filtered, const std::string& endIssue,
                  NumberCountResult& result) {
    if (filtered.rows() < 1) return Refuse(session, "无数据！");
    if (!Contains(filtered.cell(0, 0), "公式")) return Refuse(session, "请先筛选数据！");
    result.issueCaption = "截至期号：" + endIssue;
    if (filtered.rows() < 2) return Refuse(session, "没有数据！");

    std::vector<std::string> draws;
    if (!ReadSourceDraws(session, endIssue, draws)) return false;
    if (!StoreCounts(session, NamedNumbers(filtered, draws))) return false;
    NextDraw next;
    if (!next.ReadAfter(session, endIssue)) return false;
    ResultGrid grid = EmptyGrid(next);
    if (!FillCounts(session, next, grid)) return false;
    result.grid = std::move(grid);
    return true;
}

}  // namespace ssq
