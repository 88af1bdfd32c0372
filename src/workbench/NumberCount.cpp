#include "workbench/NumberCount.h"

#include <vector>

#include "base/Regex.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/ColumnTable.h"
#include "ui/Host.h"
#include "ui/palette.h"
#include "workbench/Forecast.h"
#include "workbench/FormulaStatistics.h"

namespace ssq {

namespace {

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
std::string NamedNumbers(const ResultGrid& filtered, const std::vector<Draw>& draws) {
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
    for (int number = 1; number <= kReds; ++number) {
        const std::string hm = TwoDigits(number);
        if (!ExecuteOrTell(session, "Insert into hSort(hm,cs) values(?,?)",
                           {hm, std::int64_t{RegexCount(hm, named)}})) {
            return false;
        }
    }
    return CommitOrTell(session, batch);
}

ResultGrid EmptyGrid(const NextDraw& next) {
    ColumnTable columns{{"开奖期号", 750}, {"开奖号码", 1800}};
    AddNumbered(columns, 1, kReds, 500);
    ResultGrid grid = MakeGrid(columns, 3, 1, 2, 300);
    grid.SetRowHeight(0, 400);
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
        if (Contains(next.drawText(), hm)) grid.SetBack(1, col, kDrawnMark);
    }
    return true;
}

}  // namespace

std::string CountCaption(const std::string& endIssue) {
    return "截至期号：" + endIssue;
}

bool CheckIsFiltered(Session& session, const ResultGrid& filtered) {
    if (filtered.rows() < 1) return Refuse(session, "无数据！");
    return Contains(filtered.cell(0, 0), "公式") || Refuse(session, "请先筛选数据！");
}

std::optional<ResultGrid> BuildNumberCount(Session& session, const ResultGrid& filtered,
                                           const std::string& endIssue) {
    if (!CheckIsFiltered(session, filtered)) return std::nullopt;
    if (filtered.rows() < 2) {
        Refuse(session, "没有数据！");
        return std::nullopt;
    }
    const auto draws = ReadDrawsUpTo(session, endIssue, kFormulaDraws);
    NextDraw next;
    if (!draws || !StoreCounts(session, NamedNumbers(filtered, *draws)) ||
        !next.ReadAfter(session, endIssue)) {
        return std::nullopt;
    }
    ResultGrid grid = EmptyGrid(next);
    if (!FillCounts(session, next, grid)) return std::nullopt;
    return grid;
}

}  // namespace ssq
