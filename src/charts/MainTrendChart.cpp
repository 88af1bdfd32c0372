#include "charts/MainTrendChart.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/ConvertYlDate.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "charts/ChartGround.h"
#include "charts/CounterTips.h"
#include "charts/TrendCounters.h"
#include "draws/NumberSource.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kOrderCol = kLastNumberCol + 1;
constexpr int kFirstCounterCol = kOrderCol + 1;
constexpr int kPickRows = 3;

constexpr Rgb kLastButOne{199, 199, 44};
constexpr Rgb kLastButTwo{236, 241, 241};
constexpr Rgb kBestRate{255, 255, 255};
constexpr Rgb kPicked{200, 200, 200};

struct Inputs {
    std::string nextIssue;
    std::vector<Draw> draws;
};

// The day of the next draw: two days after a Sunday or Tuesday, three after a Thursday; any other
// day is taken for a draw day itself.
Date NextDrawDate(const Date& date) {
    constexpr int kSunday = 1;
    constexpr int kTuesday = 3;
    constexpr int kThursday = 5;
    const int weekday = Weekday(date);
    if (weekday == kSunday || weekday == kTuesday) return AddDays(date, 2);
    return AddDays(date, weekday == kThursday ? 3 : 0);
}

bool UsesWholeHistory(int type) {
    return type == 1 || type == 2 || type == 5 || type == 6;
}

// The condition that the draws of the series meet.
std::string SeriesCondition(const PeriodRange& range, int type, const std::string& nextIssue,
                            const Date& nextDraw) {
    std::string period = "kjqh>=" + range.start + " and kjqh<=" + range.end;
    switch (type) {
        case 1:
            return "mid(kjqh,5,3)='" + Characters(nextIssue, 5, 3) + "'";
        case 2:
            return "mid(kjqh,7,1)='" + Characters(nextIssue, 7, 1) + "'";
        case 3:
            return "int(mid(kjqh,5,3)) mod 2=1 and " + period;
        case 4:
            return "int(mid(kjqh,5,3)) mod 2=0 and " + period;
        case 5:
            return "day(kjdate)=" + std::to_string(static_cast<unsigned>(nextDraw.day()));
        case 6:
            return "nnDate=" + LunarDay(LunarText(DateText(nextDraw)));
        case 7:
            return "kjWeek=" + std::to_string(Weekday(nextDraw)) + " and " + period;
        default:
            return period;
    }
}

std::optional<Inputs> ReadInputs(Session& session, const PeriodRange& range, int type) {
    if (!UsesWholeHistory(type) && !CheckPeriod(session, range)) return std::nullopt;
    const std::int32_t next = NextIssue(session, range.end);
    if (next == 0) return std::nullopt;
    const std::string nextIssue = std::to_string(next);

    Recordset rows;
    if (!QueryOrTell(session, "Select kjdate from cphm where kjqh=" + range.end, rows)) {
        return std::nullopt;
    }
    const Date nextDraw = NextDrawDate(ParseDate(rows.Text(0)).value_or(Date{}));
    auto draws = ReadDrawsWhere(session, SeriesCondition(range, type, nextIssue, nextDraw));
    if (!draws) return std::nullopt;
    if (draws->empty()) {
        session.host.ShowMessage("无数据！");
        return std::nullopt;
    }
    return Inputs{nextIssue, std::move(*draws)};
}

int CounterCol(std::size_t counter) {
    return kFirstCounterCol + static_cast<int>(counter);
}

ColumnTable Columns() {
    ColumnTable columns;
    AddDrawColumns(columns);
    AddNumberColumns(columns);
    columns.push_back({"出球顺序"});
    for (const TrendCounter& counter : kTrendCounters) columns.push_back({counter.heading});
    return columns;
}

void FillDraw(ResultGrid& grid, int row, const Draw& draw, const TrendCounts& counts,
              ColumnCounts& hits) {
    FillDrawCells(grid, row, draw);
    for (const int ball : draw.balls) {
        if (ball < 1 || ball > kReds) continue;
        ShowBall(grid, row, ball);
        hits.Add(NumberCol(ball));
    }
    grid.SetCell(row, kOrderCol, draw.drawn);
    for (std::size_t i = 0; i < counts.size(); ++i) {
        grid.SetCell(row, CounterCol(i), std::to_string(counts[i]));
        if (counts[i] > kTrendCounters[i].commonUpTo) hits.Add(CounterCol(i));
    }
}

void SetLightFore(ResultGrid& grid, int row, int col, Rgb colour) {
    grid.SetFore(row, col, colour);
    grid.SetMark(row, col, kDarkBall);
}

// Marks in the two rows before the last draw what differs from the rows below. In a series of one
// or two draws that reaches the heading, as it would any other row.
void ColourLastRows(ResultGrid& grid, int lastDraw) {
    for (int col = kFirstNumberCol; col <= kLastNumberCol; ++col) {
        const std::string& last = grid.cell(lastDraw, col);
        const std::string& before = grid.cell(lastDraw - 1, col);
        const std::string& twoBefore = grid.cell(lastDraw - 2, col);
        if (before != last) SetLightFore(grid, lastDraw - 1, col, kLastButOne);
        if (twoBefore != last && before != twoBefore) {
            SetLightFore(grid, lastDraw - 2, col, kLastButTwo);
        }
    }
}

std::string FillPickRows(ResultGrid& grid, int lastDraw, const std::string& nextIssue) {
    std::vector<std::string> rows;
    for (int i = 1; i <= kPickRows; ++i) {
        grid.SetRowHeight(lastDraw + i, 330);
        grid.SetCell(lastDraw + i, 1, std::to_string(i) + nextIssue + "期预选号");
        rows.push_back(TwoDigits(lastDraw + i));
    }
    return Join(rows, ",");
}

void FillRates(ResultGrid& grid, int draws, const ColumnCounts& hits) {
    const int rateRow = draws + kPickRows + 1;
    grid.SetCell(rateRow, 1, "命中概率");
    WriteSmallRates(hits, grid, rateRow, kFirstNumberCol, kLastNumberCol, draws);
    int best = 0;
    for (int col = kFirstNumberCol; col <= kLastNumberCol; ++col) best = std::max(best, hits[col]);
    for (int col = kFirstNumberCol; col <= kLastNumberCol; ++col) {
        if (hits[col] == best) SetLightFore(grid, rateRow, col, kBestRate);
    }
    for (std::size_t i = 0; i < kTrendCounters.size(); ++i) {
        const int col = CounterCol(i);
        WriteSmallRates(hits, grid, draws + 1, col, col, draws - kTrendCounters[i].leadRows);
    }
}

}  // namespace

std::optional<MainTrendChart> BuildMainTrendChart(Session& session, const PeriodRange& range,
                                                  int type) {
    const auto inputs = ReadInputs(session, {Trim(range.start), Trim(range.end)}, type);
    if (!inputs) return std::nullopt;

    const int draws = static_cast<int>(inputs->draws.size());
    MainTrendChart chart;
    ResultGrid& grid = chart.report.grid;
    grid = MakeChart(Columns(), draws + kPickRows + 2, 1);
    ShapeNumberColumns(grid);
    ColumnCounts hits(grid.cols());
    for (int row = 1; row <= draws; ++row) {
        FillDraw(grid, row, inputs->draws[static_cast<std::size_t>(row - 1)],
                 CountRow(inputs->draws, row), hits);
    }
    for (int row = 1; row < grid.rows(); ++row) BandNumbers(grid, row);
    ColourLastRows(grid, draws);
    grid.footRow = draws + 1;
    for (std::size_t i = 0; i < kTrendCounters.size(); ++i)
        grid.SetTip(CounterCol(i), CounterTip(i));
    chart.pickRowList = FillPickRows(grid, draws, inputs->nextIssue);
    FillRates(grid, draws, hits);
    grid.AddRow();
    chart.report.caption = DrawsCaption(inputs->draws.size());
    return chart;
}

void TogglePick(ResultGrid& grid, const std::string& pickRowList, int row, int col) {
    const int number = col - NumberCol(0);
    if (!Contains(pickRowList, TwoDigits(row)) || number > kReds) return;
    if (!grid.cell(row, col).empty()) {
        grid.SetCell(row, col, "");
        return;
    }
    grid.SetCell(row, col, TwoDigits(number));
    grid.SetBold(row, col);
    SetLightFore(grid, row, col, kPicked);
}

std::vector<NumberSource> PickSources(const ResultGrid& grid, const std::string& pickRowList) {
    std::vector<NumberSource> sources;
    for (const int row : IntList(pickRowList)) {
        RedSet picked;
        for (int number = 1; number <= kReds; ++number) {
            if (!grid.cell(row, NumberCol(number)).empty()) picked.Add(number);
        }
        if (picked.empty()) continue;
        sources.push_back({.name = "走势图第" + std::to_string(sources.size() + 1) + "行自选号",
                           .numbers = [picked](std::span<const Draw>) { return picked; }});
    }
    return sources;
}

void HideNumbers(ResultGrid& grid, bool hidden) {
    for (int col = kFirstNumberCol; col <= kLastNumberCol; ++col) grid.SetHidden(col, hidden);
}

}  // namespace ssq
