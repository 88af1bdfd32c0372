#include "charts/MainTrendChart.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/ConvertYlDate.h"
#include "base/RedSet.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "charts/TrendCounters.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kCols = 69;
constexpr int kFixedCols = 3;
constexpr int kOrderCol = 36;
constexpr int kFirstCounterCol = 37;
constexpr int kPickRows = 3;

constexpr Rgb kBackground{51, 153, 102};
constexpr Rgb kBand{153, 51, 102};
constexpr Rgb kLines{0, 0, 0};
constexpr Rgb kLastButOne{199, 199, 44};
constexpr Rgb kLastButTwo{236, 241, 241};
constexpr Rgb kBestRate{255, 255, 255};
constexpr Rgb kPicked{200, 200, 200};
// Discs behind the numbers: a light one under the default text, a dark one under light colours.
constexpr Rgb kBall{255, 248, 224};
constexpr Rgb kDarkBall{58, 14, 42};

struct TrendDraw {
    std::string issue;
    std::string reds;
    std::string drawnOrder;
    std::array<int, 6> balls{};
    int blue = 0;
};

struct Inputs {
    std::string nextIssue;
    std::vector<TrendDraw> draws;
    std::vector<CountedDraw> counted;  // the same draws for the counters
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

std::string SeriesSql(const PeriodRange& range, int type, const std::string& nextIssue,
                      const Date& nextDraw) {
    const std::string period = "kjqh>=" + range.start + " and kjqh<=" + range.end;
    const std::string fields = "kjqh ,kjhm,cqsx,a1,a2,a3,a4,a5,a6,a7 from cphm where ";
    const std::string prefix = "Select  " + fields;
    switch (type) {
        case 1:
            return prefix + "mid(kjqh,5,3)='" + Characters(nextIssue, 5, 3) +
                   "'  order by kjqh asc";
        case 2:
            return prefix + "mid(kjqh,7,1)='" + Characters(nextIssue, 7, 1) +
                   "'   order by kjqh asc";
        case 3:
            return prefix + "int(mid(kjqh,5,3)) mod 2=1 and  " + period + " order by kjqh asc";
        case 4:
            return prefix + "int(mid(kjqh,5,3))  mod 2=0  and " + period + "  order by kjqh asc";
        case 5:
            return prefix + "day(kjdate)=" + std::to_string(static_cast<unsigned>(nextDraw.day())) +
                   "  order by kjqh asc";
        case 6:
            return prefix + "nnDate=" + LunarDay(LunarText(DateText(nextDraw))) +
                   "  order by kjqh asc";
        case 7:
            return prefix + "kjWeek=" + std::to_string(Weekday(nextDraw)) + " and " + period +
                   "  order by kjqh asc";
        default:
            return "Select kjqh,kjhm,cqsx,a1,a2,a3,a4,a5,a6,a7 from cphm where " + period +
                   " order by kjqh asc";
    }
}

TrendDraw ReadDraw(const Recordset& rows) {
    TrendDraw draw;
    draw.issue = rows.Text(0);
    draw.reds = rows.Text(1);
    draw.drawnOrder = rows.Text(2);
    for (std::size_t i = 0; i < draw.balls.size(); ++i) {
        draw.balls[i] = static_cast<int>(rows.Int(static_cast<int>(3 + i)));
    }
    draw.blue = static_cast<int>(rows.Int(9));
    return draw;
}

bool ReadInputs(Session& session, const PeriodRange& range, int type, Inputs& inputs) {
    if (!UsesWholeHistory(type) && !CheckPeriod(session, range)) return false;
    const std::int32_t next = NextIssue(session, range.end);
    if (next == 0) return false;
    inputs.nextIssue = std::to_string(next);

    Recordset rows;
    if (!QueryOrTell(session, "Select kjdate from cphm where kjqh=" + range.end, rows)) {
        return false;
    }
    const Date nextDraw = NextDrawDate(ParseDate(rows.Text(0)).value_or(Date{}));
    if (!QueryOrTell(session, SeriesSql(range, type, inputs.nextIssue, nextDraw), rows)) {
        return false;
    }
    if (rows.eof()) {
        session.host.ShowMessage("无数据！");
        return false;
    }
    for (; !rows.eof(); rows.MoveNext()) {
        const TrendDraw& draw = inputs.draws.emplace_back(ReadDraw(rows));
        inputs.counted.push_back(CountedDrawOf(draw.reds, draw.blue));
    }
    return true;
}

int ColOf(int red) {
    return red + kFirstNumberCol - 1;
}

int CounterCol(std::size_t counter) {
    return kFirstCounterCol + static_cast<int>(counter);
}

ResultGrid EmptyGrid(int draws) {
    ResultGrid grid(draws + 5, kCols, 1, kFixedCols);
    grid.gridBack = kBackground;
    grid.gridLines = kLines;
    grid.paleText = "0";
    grid.SetAllAlignments(Align::kCentre);
    grid.SetEvenCols(kFirstNumberCol, kLastNumberCol);
    grid.SetNames(kFirstNumberCol, kLastNumberCol);
    grid.SetCell(0, 0, "期号");
    grid.SetCell(0, 1, "红球号码");
    grid.SetCell(0, 2, "蓝");
    for (int red = 1; red <= RedSet::kLargest; ++red) grid.SetCell(0, ColOf(red), TwoDigits(red));
    grid.SetCell(0, kOrderCol, "出球顺序");
    for (std::size_t i = 0; i < kTrendCounters.size(); ++i) {
        grid.SetCell(0, CounterCol(i), kTrendCounters[i].heading);
    }
    for (int col = 0; col < kCols; ++col) grid.SetBold(0, col);
    return grid;
}

// How often each number was drawn and each pattern occurred.
struct Hits {
    std::array<int, RedSet::kLargest + 1> ofNumber{};
    TrendCounts ofPattern{};
};

void FillDraw(ResultGrid& grid, int row, const TrendDraw& draw, const TrendCounts& counts,
              Hits& hits) {
    grid.SetCell(row, 0, ShortIssue(draw.issue));
    grid.SetCell(row, 1, draw.reds);
    grid.SetCell(row, 2, TwoDigits(draw.blue));
    for (const int ball : draw.balls) {
        if (ball < 1 || ball > RedSet::kLargest) continue;
        grid.SetCell(row, ColOf(ball), TwoDigits(ball));
        grid.SetBold(row, ColOf(ball));
        grid.SetMark(row, ColOf(ball), kBall);
        ++hits.ofNumber[static_cast<std::size_t>(ball)];
    }
    grid.SetCell(row, kOrderCol, draw.drawnOrder);
    for (std::size_t i = 0; i < kTrendCounters.size(); ++i) {
        grid.SetCell(row, CounterCol(i), std::to_string(counts[i]));
        if (counts[i] > kTrendCounters[i].commonUpTo) ++hits.ofPattern[i];
    }
}

void ColourBands(ResultGrid& grid) {
    constexpr std::array<std::array<int, 2>, 3> kBands{{{3, 9}, {17, 23}, {31, 35}}};
    for (int row = 1; row < grid.rows(); ++row) {
        for (const auto& [first, last] : kBands) {
            for (int col = first; col <= last; ++col) grid.SetBack(row, col, kBand);
        }
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

void SetRate(ResultGrid& grid, int row, int col, double rate) {
    grid.SetCell(row, col, NumberText(rate));
    grid.SetFont(row, col, "Arial Narrow", 8);
}

void FillRates(ResultGrid& grid, int draws, const Hits& hits) {
    const int rateRow = draws + kPickRows + 1;
    grid.SetCell(rateRow, 1, "命中概率");
    std::array<double, RedSet::kLargest + 1> rates{};
    for (int red = 1; red <= RedSet::kLargest; ++red) {
        const auto i = static_cast<std::size_t>(red);
        rates[i] = Round(100.0 * hits.ofNumber[i] / draws);
        SetRate(grid, rateRow, ColOf(red), rates[i]);
    }
    const double best = *std::max_element(rates.begin(), rates.end());
    for (int red = 1; red <= RedSet::kLargest; ++red) {
        if (rates[static_cast<std::size_t>(red)] == best) {
            SetLightFore(grid, rateRow, ColOf(red), kBestRate);
        }
    }
    for (std::size_t i = 0; i < kTrendCounters.size(); ++i) {
        const double counted = draws - kTrendCounters[i].leadRows;
        SetRate(grid, draws + 1, CounterCol(i), Round(100.0 * hits.ofPattern[i] / counted));
    }
}

}  // namespace

bool BuildMainTrendChart(Session& session, const PeriodRange& range, int type,
                         MainTrendChart& chart) {
    const PeriodRange trimmed{Trim(range.start), Trim(range.end)};
    Inputs inputs;
    if (!ReadInputs(session, trimmed, type, inputs)) return false;

    const int draws = static_cast<int>(inputs.draws.size());
    MainTrendChart built;
    built.grid = EmptyGrid(draws);
    Hits hits;
    for (int row = 1; row <= draws; ++row) {
        FillDraw(built.grid, row, inputs.draws[static_cast<std::size_t>(row - 1)],
                 CountRow(inputs.counted, row), hits);
    }
    ColourBands(built.grid);
    ColourLastRows(built.grid, draws);
    built.pickRowList = FillPickRows(built.grid, draws, inputs.nextIssue);
    FillRates(built.grid, draws, hits);
    built.grid.AddRow();
    built.caption = "走势图结果  [共" + std::to_string(draws) + "期]";
    chart = std::move(built);
    return true;
}

void TogglePick(ResultGrid& grid, const std::string& pickRowList, int row, int col) {
    const int number = col - (kFirstNumberCol - 1);
    if (!Contains(pickRowList, TwoDigits(row)) || number > RedSet::kLargest) return;
    if (!grid.cell(row, col).empty()) {
        grid.SetCell(row, col, "");
        return;
    }
    grid.SetCell(row, col, TwoDigits(number));
    grid.SetBold(row, col);
    SetLightFore(grid, row, col, kPicked);
}

void HideNumbers(ResultGrid& grid, bool hidden) {
    for (int col = kFirstNumberCol; col <= kLastNumberCol; ++col) grid.SetHidden(col, hidden);
}

}  // namespace ssq
