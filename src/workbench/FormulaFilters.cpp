#include "workbench/FormulaFilters.h"

#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "workbench/Forecast.h"

namespace ssq {

namespace {

constexpr int kRowHeight = 300;
constexpr int kExcessColumn = kGapColumn + 1;
constexpr int kFilteredNumbersColumn = kExcessColumn + 1;
constexpr int kFilteredHitsColumn = kFilteredNumbersColumn + 1;
constexpr int kFilteredColumns = kFilteredHitsColumn + 1;

bool Passes(const ResultGrid& statistics, int row, const FormulaFilter& filter,
            FormulaThreshold threshold) {
    if (threshold) return statistics.CellVal(row, filter.tested) >= *threshold;
    return statistics.CellVal(row, filter.current) > statistics.CellVal(row, filter.maximum);
}

ResultGrid HeadingRow(const FormulaFilter& filter, const std::string& numbersHeading,
                      const std::string& hitsHeading) {
    ResultGrid grid(1, kFilteredColumns, 1, 0);
    SetUpFormulaColumns(grid);
    grid.SetColWidth(kExcessColumn, 800);
    grid.SetColWidth(kFilteredNumbersColumn, 2800);
    grid.SetColWidth(kFilteredHitsColumn, 1100);
    grid.SetCell(0, kExcessColumn, filter.excessHeading);
    grid.SetCell(0, kFilteredNumbersColumn, numbersHeading);
    grid.SetCell(0, kFilteredHitsColumn, hitsHeading);
    return grid;
}

void AddPassing(ResultGrid& grid, const ResultGrid& statistics, int source,
                const FormulaFilter& filter, const NextDraw& next) {
    const int row = grid.AddRow();
    grid.SetRowHeight(row, kRowHeight);
    for (int col = kKeyColumn; col <= kGapColumn; ++col) {
        grid.SetCell(row, col, statistics.cell(source, col));
    }
    const double excess =
        statistics.CellVal(source, filter.current) - statistics.CellVal(source, filter.maximum);
    const std::string& numbers = statistics.cell(source, kNumbersColumn);
    grid.SetCell(row, kExcessColumn, NumberText(excess));
    grid.SetCell(row, kFilteredNumbersColumn, numbers);
    grid.SetCell(row, kFilteredHitsColumn, next.HitsOf(numbers));
}

void AddAllPassing(ResultGrid& grid, const ResultGrid& statistics, const FormulaFilter& filter,
                   FormulaThreshold threshold, const NextDraw& next) {
    for (int row = 1; row < statistics.rows(); ++row) {
        if (Passes(statistics, row, filter, threshold)) {
            AddPassing(grid, statistics, row, filter, next);
        }
    }
}

// The formulas that passed, the heading not counted.
std::string Passed(const ResultGrid& grid) {
    return std::to_string(grid.rows() - 1);
}

// Refuses an empty statistics grid with `noData`, then reads the next draw.
bool ReadNext(Session& session, const ResultGrid& statistics, const std::string& endIssue,
              const std::string& noData, NextDraw& next) {
    if (statistics.rows() < 1) {
        session.host.ShowMessage(noData);
        return false;
    }
    return next.ReadAfter(session, endIssue);
}

}  // namespace

FormulaThreshold ThresholdOf(const FormulaFilter& filter, const std::string& text) {
    if (!filter.maximumKeyword) return Val(text);
    const std::string trimmed = Trim(text);
    if (trimmed == filter.maximumKeyword) return std::nullopt;
    return std::abs(ParseNumber(trimmed).value_or(0));
}

std::optional<FilterReport> FilterForWorkbench(Session& session, const ResultGrid& statistics,
                                               const std::string& endIssue,
                                               const FormulaFilter& filter,
                                               const std::string& thresholdText) {
    NextDraw next;
    if (!ReadNext(session, statistics, endIssue, "没有统计数据！", next)) return std::nullopt;
    FilterReport report;
    report.grid = HeadingRow(filter, next.NumbersHeading(), next.HitsHeading());
    AddAllPassing(report.grid, statistics, filter, ThresholdOf(filter, thresholdText), next);
    report.caption = std::string("筛选") + filter.captionName + "大于等于" + thresholdText +
                     " 的公式,共" + Passed(report.grid) + "条数据";
    return report;
}

std::optional<FilterReport> FilterForOmissionScreen(Session& session, const ResultGrid& statistics,
                                                    const std::string& endIssue,
                                                    const std::string& condition,
                                                    const FormulaFilter& filter,
                                                    FormulaThreshold threshold) {
    NextDraw next;
    if (!ReadNext(session, statistics, endIssue, "没有数据！", next)) return std::nullopt;
    FilterReport report;
    report.issueCaption =
        "截至期号：" + endIssue + "   下期期号：" + next.issue() + " 开奖号码：" + next.drawText();
    report.grid = HeadingRow(filter, "该公式的号码", next.HitsHeading());
    AddAllPassing(report.grid, statistics, filter, threshold, next);
    report.caption = "截至：" + endIssue + "期," + condition + "的公式筛选结果,共" +
                     Passed(report.grid) + "条数据";
    return report;
}

}  // namespace ssq
