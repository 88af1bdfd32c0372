#include "workbench/FormulaStatistics.h"

#include <algorithm>
#include <bitset>
#include <cstdlib>
#include <variant>
#include <vector>

#include "base/numbers.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "formulas/BMHZ.h"
#include "workbench/Forecast.h"

namespace ssq {

namespace {

constexpr int kHeaderHeight = 400;
constexpr int kRowHeight = 300;
constexpr int kLevels = 7;  // a formula names six numbers, so it hits 0 to 6

using HitLevels = std::bitset<kLevels>;
using AllStats = std::array<FormulaStats, kFormulaCount>;

bool Compare(const std::string& comparison, int left, int right) {
    if (comparison == "<=") return left <= right;
    if (comparison == ">=") return left >= right;
    if (comparison == "=") return left == right;
    if (comparison == ">") return left > right;
    return comparison == "<" && left < right;
}

HitLevels LevelsMeeting(const FormulaCondition& condition) {
    HitLevels levels;
    for (int level = 0; level < kLevels; ++level) {
        levels[static_cast<std::size_t>(level)] =
            Compare(condition.comparison, level, condition.reds);
    }
    return levels;
}

// One query for all formulas: the rows are the same for each.
bool WalkHistory(Session& session, const FormulaCondition& condition, const std::string& endIssue,
                 AllStats& stats) {
    const HitLevels levels = LevelsMeeting(condition);
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select qid," + FormulaColumns() + " from BMHZ where kjqh<=" + endIssue +
                         " order by kjqh asc",
                     rows)) {
        return false;
    }
    for (; !rows.eof(); rows.MoveNext()) {
        const int qid = static_cast<int>(rows.Int(0));
        for (int index = 0; index < kFormulaCount; ++index) {
            const auto* hits = std::get_if<std::int64_t>(&rows.Field(index + 1));
            if (!hits || *hits < 0 || *hits >= kLevels) continue;
            if (levels[static_cast<std::size_t>(*hits)]) {
                stats[static_cast<std::size_t>(index)].Hit(qid);
            }
        }
    }
    return true;
}

ResultGrid EmptyGrid(const NextDraw& next) {
    ResultGrid grid(kFormulaCount + 1, kStatisticsColumns, 1, 0);
    SetUpFormulaColumns(grid);
    grid.SetColWidth(kNumbersColumn, 2800);
    grid.SetColWidth(kHitsColumn, 1100);
    grid.SetCell(0, kNumbersColumn, next.NumbersHeading());
    grid.SetCell(0, kHitsColumn, next.HitsHeading());
    return grid;
}

void FillRow(ResultGrid& grid, int row, const FormulaStats& stats, int total) {
    const auto set = [&](int col, double value) { grid.SetCell(row, col, NumberText(value)); };
    set(kCountColumn, stats.count);
    set(kRateColumn, Percent(stats.count, total));
    set(kMaxRunColumn, stats.maxRun);
    set(kMaxGapColumn, stats.maxGap);
    set(kRunColumn, stats.CurrentRun(total));
    set(kGapColumn, stats.CurrentGap(total));
}

}  // namespace

void FormulaStats::Hit(int qid) {
    const int distance = qid - lastQid;
    if (distance == 1) {
        ++run;
        maxRun = std::max(maxRun, run);
    } else {
        maxGap = std::max(maxGap, distance - 1);
        run = 1;
    }
    lastQid = qid;
    ++count;
}

int FormulaStats::CurrentGap(int total) const {
    return std::abs(total - lastQid);
}

void SetUpFormulaColumns(ResultGrid& grid) {
    constexpr std::array kHeadings = {"公式编号", "出现次数", "出现概率", "最大连出",
                                      "最大遗漏", "当前连出", "当前遗漏"};
    grid.SetAllAlignments(Align::kCentre);
    grid.SetAlignment(kKeyColumn, Align::kLeft);
    grid.SetColWidths(kCountColumn, kGapColumn, 800);
    grid.SetColWidth(kKeyColumn, 1800);
    grid.SetRowHeight(0, kHeaderHeight);
    int col = kKeyColumn;
    for (const char* heading : kHeadings) grid.SetCell(0, col++, heading);
}

bool PrepareFormulaStatistics(Session& session) {
    if (!session.connection.isOpen()) {
        session.host.ShowMessage("数据库错误！");
        return false;
    }
    if (EnsureEdgeTable(session)) return true;
    session.host.ShowMessage("汇总数据出错！");
    return false;
}

bool FormulaStatistics(Session& session, const FormulaCondition& condition,
                       const std::string& endIssue, const ProgressText& percent,
                       FormulaStatisticsResult& result) {
    NextDraw next;
    if (!next.ReadAfter(session, endIssue)) return false;
    result.nextDrawLine = " 下期期号：" + next.issue() + "  下期开奖号码：" + next.drawText();
    std::vector<std::string> draws;
    if (!ReadSourceDraws(session, endIssue, draws)) return false;

    result.grid = EmptyGrid(next);
    const int total = RenumberEdgeTable(session, endIssue);
    AllStats all;
    if (total > 0 && !WalkHistory(session, condition, endIssue, all)) return false;
    int row = 1;
    for (int index = 0; index < kFormulaCount; ++index) {
        const FormulaStats& stats = all[static_cast<std::size_t>(index)];
        result.grid.SetRowHeight(row, kRowHeight);
        percent(NumberText(Percent(row, kFormulaCount)));
        if (stats.count == 0) continue;
        const ShiftFormula formula = FormulaAt(index);
        const std::string numbers = ForecastNumbers(draws, formula);
        result.grid.SetCell(row, kKeyColumn, FormulaKey(formula));
        FillRow(result.grid, row, stats, total);
        result.grid.SetCell(row, kNumbersColumn, numbers);
        result.grid.SetCell(row, kHitsColumn, next.HitsOf(numbers));
        ++row;
    }
    return true;
}

}  // namespace ssq
