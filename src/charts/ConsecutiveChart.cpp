#include "charts/ConsecutiveChart.h"

#include <array>
#include <string>

#include "charts/ChartGround.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kFirstFlagCol = kLastNumberCol + 1;  // of a draw with one pair
constexpr int kCountCol = kFirstFlagCol + kRedsInDraw;
constexpr int kGapCol = kCountCol + 1;
constexpr int kFirstZoneCol = kGapCol + 1;

ColumnTable Columns() {
    ColumnTable columns;
    AddDrawColumns(columns);
    AddNumberColumns(columns);
    AddNumbered(columns, 1, kRedsInDraw, 0, "", "连");
    columns.push_back({"个数"});
    columns.push_back({"遗漏"});
    AddNumbered(columns, 1, kNumberZones, 0, "", "区");
    return columns;
}

// Returns how many pairs the draw has.
int FillPairs(ResultGrid& grid, int row, const Draw& draw) {
    std::array<int, kNumberZones> ofZone{};
    int pairs = 0;
    for (const int ball : draw.balls) {
        if (NumberZone(ball) == 0 || !draw.Has(ball + 1)) continue;
        ++pairs;
        const int zone = NumberZone(ball) - 1;
        const int inZone = ++ofZone[static_cast<std::size_t>(zone)];
        ShowBall(grid, row, ball);
        grid.SetCell(row, kFirstZoneCol + zone, std::to_string(inZone));
    }
    for (int flag = 0; flag < kRedsInDraw; ++flag) {
        grid.SetCell(row, kFirstFlagCol + flag, pairs == flag + 1 ? "1" : "0");
    }
    grid.SetCell(row, kCountCol, std::to_string(pairs));
    return pairs;
}

}  // namespace

std::optional<GridReport> BuildConsecutiveChart(Session& session, const PeriodRange& range) {
    if (!CheckPeriod(session, range)) return std::nullopt;
    const auto draws = ReadDraws(session, range);
    if (!draws) return std::nullopt;
    if (draws->empty()) {
        session.host.ShowMessage("无数据！");
        return std::nullopt;
    }
    GridReport report{MakeChart(Columns(), static_cast<int>(draws->size()) + 2, 1),
                      DrawsCaption(draws->size())};
    ResultGrid& grid = report.grid;
    ShapeNumberColumns(grid);
    int row = 0;
    int gap = -1;  // the first row starts at 0 with a pair or without
    for (const Draw& draw : *draws) {
        ++row;
        FillDrawCells(grid, row, draw);
        BandNumbers(grid, row);
        PaintCells(grid, row, kCountCol, kGapCol, kChartBand);
        gap = FillPairs(grid, row, draw) > 0 ? 0 : gap + 1;
        grid.SetCell(row, kGapCol, std::to_string(gap));
    }
    grid.footRow = row + 1;
    return report;
}

}  // namespace ssq
