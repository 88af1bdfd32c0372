#include "workbench/FormulaStatistics.h"

#include <algorithm>
#include <cstdlib>
#include <variant>
#include <vector>

#include "base/numbers.h"
#include "chance/Chance.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"
#include "ui/Run.h"
#include "workbench/Forecast.h"

namespace ssq {

namespace {

constexpr int kHeaderHeight = 400;
constexpr int kRowHeight = 300;
constexpr int kLevels = kRedsInDraw + 1;

using AllStats = std::array<FormulaStats, kFormulaCount>;

bool Compare(const std::string& comparison, int left, int right) {
    if (comparison == "<=") return left <= right;
    if (comparison == ">=") return left >= right;
    if (comparison == "=") return left == right;
    if (comparison == ">") return left > right;
    return comparison == "<" && left < right;
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

void FillRow(ResultGrid& grid, int row, const FormulaRow& formula, int total,
             const NextDraw& next) {
    const FormulaStats& stats = formula.stats;
    grid.SetCell(row, kKeyColumn, FormulaKey(formula.formula));
    const auto set = [&](int col, double value) { grid.SetCell(row, col, NumberText(value)); };
    set(kCountColumn, stats.count);
    set(kRateColumn, Percent(stats.count, total));
    set(kMaxRunColumn, stats.maxRun);
    set(kMaxGapColumn, stats.maxGap);
    set(kRunColumn, stats.CurrentRun(total));
    set(kGapColumn, stats.CurrentGap(total));
    grid.SetCell(row, kNumbersColumn, formula.numbers);
    grid.SetCell(row, kHitsColumn, next.HitsOf(formula.numbers));
}

std::string Remark(const FormulaCondition& condition, int draws) {
    if (draws == 0) return {};
    const HitLevels levels = LevelsMeeting(condition);
    double chance = 0;
    for (int level = 0; level < kLevels; ++level) {
        if (levels[static_cast<std::size_t>(level)]) chance += ChanceOfHits(kRedsInDraw, level);
    }
    return "机会线：任意 6 个号码，命中" + condition.comparison + std::to_string(condition.reds) +
           " 的机会是 " + InPercent(chance) + "；" + std::to_string(kFormulaCount) +
           " 条里最好的一条，靠运气也有 " +
           InPercent(BestRateByLuck(kFormulaCount, draws, chance) / 100) + "。";
}

bool BringEdgeTableLevel(Session& session, const Run& run) {
    if (!session.connection.isOpen()) {
        session.host.ShowMessage("数据库错误！");
        return false;
    }
    if (EnsureEdgeTable(session)) return true;
    if (run.goesOn()) session.host.ShowMessage("汇总数据出错！");
    return false;
}

}  // namespace

HitLevels LevelsMeeting(const FormulaCondition& condition) {
    HitLevels levels;
    for (int level = 0; level < kLevels; ++level) {
        levels[static_cast<std::size_t>(level)] =
            Compare(condition.comparison, level, condition.reds);
    }
    return levels;
}

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

std::optional<FormulaReport> FormulaStatistics(Session& session, const FormulaCondition& condition,
                                               const std::string& endIssue, Run& run) {
    run.Tell("0");
    if (!BringEdgeTableLevel(session, run) || !run.goesOn()) return std::nullopt;
    FormulaReport report;
    NextDraw next;
    if (!next.ReadAfter(session, endIssue)) return std::nullopt;
    report.nextDrawLine = " 下期期号：" + next.issue() + "  下期开奖号码：" + next.drawText();
    const auto draws = ReadDrawsUpTo(session, endIssue, kFormulaDraws);
    if (!draws) return std::nullopt;
    const int total = RenumberEdgeTable(session, endIssue);
    if (!run.SlowStep(0, kFormulaCount)) return std::nullopt;
    AllStats all;
    if (total > 0 && !WalkHistory(session, condition, endIssue, all)) return std::nullopt;

    report.grid = EmptyGrid(next);
    int row = 1;
    for (int index = 0; index < kFormulaCount; ++index) {
        report.grid.SetRowHeight(row, kRowHeight);
        if (!run.Step(row, kFormulaCount)) return std::nullopt;
        const FormulaStats& stats = all[static_cast<std::size_t>(index)];
        if (stats.count == 0) continue;
        const ShiftFormula formula = FormulaAt(index);
        report.rows.push_back({formula, stats, ForecastNumbers(*draws, formula)});
        FillRow(report.grid, row++, report.rows.back(), total, next);
    }
    report.remark = Remark(condition, total);
    return report;
}

}  // namespace ssq
