#include "charts/RowColumnChart.h"

#include <algorithm>

#include "base/text.h"
#include "charts/ChartGround.h"
#include "charts/rowLngZST.h"
#include "charts/tails.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kHeadingRows = 2;
constexpr int kFirstBallCol = 3;
constexpr int kLastBallCol = kFirstBallCol + kRedsInDraw - 1;
constexpr int kRepeatCol = 9;
constexpr int kEmptyRowsCol = 15;
constexpr int kFirstRowCountCol = 16;
constexpr int kLastRowCountCol = 20;
constexpr int kSameCountsCol = 21;

ColumnTable Columns() {
    ColumnTable columns;
    AddDrawColumns(columns);
    AddNumbered(columns, 1, kRedsInDraw, 0, "", "位");
    for (const char* heading : {"重号", "连号", "和值", "极距", "同行", "连重", "断行"}) {
        columns.push_back({heading});
    }
    AddNumbered(columns, 1, static_cast<int>(TailLayout{}.rows.size()), 0, "", "行");
    columns.push_back({"重号"});
    columns.push_back({"同号"});
    return columns;
}

// A heading over several columns.
void AddGroupHeading(ResultGrid& grid, int firstCol, int lastCol, const char* heading) {
    for (int col = firstCol; col <= lastCol; ++col) {
        grid.SetCell(0, col, heading);
        grid.SetMergeCol(col);
    }
}

ResultGrid EmptyChart(int draws) {
    ResultGrid grid = MakeChart(Columns(), draws + kHeadingRows, kHeadingRows);
    grid.SetMergeRow(0);
    AddGroupHeading(grid, kFirstBallCol, kLastBallCol, "红球每位行位置");
    AddGroupHeading(grid, kRepeatCol, kEmptyRowsCol, "行列图统计");
    AddGroupHeading(grid, kFirstRowCountCol, kLastRowCountCol, "断行走势图");
    return grid;
}

// The row from 1 that holds the tail; 0 without a layout.
int RowOfTail(const TailLayout* layout, int tail) {
    if (!layout) return 0;
    const auto holds = [tail](std::string_view row) { return Contains(row, std::to_string(tail)); };
    return static_cast<int>(std::find_if(layout->rows.begin(), layout->rows.end(), holds) -
                            layout->rows.begin() + 1);
}

// Returns the rows as a list such as "1,1,3,5,5,5,".
std::string FillBallRows(ResultGrid& grid, int row, const Draw& draw, const TailLayout* layout) {
    std::string list;
    for (int ball = 0; ball < kRedsInDraw; ++ball) {
        const int tail = TailDigit(draw.balls[static_cast<std::size_t>(ball)]);
        const int layoutRow = RowOfTail(layout, tail);
        if (layoutRow == 0) continue;
        grid.SetCell(row, kFirstBallCol + ball, std::to_string(layoutRow));
        list += std::to_string(layoutRow) + ",";
    }
    return list;
}

void FillDraw(ResultGrid& grid, int row, const Draw& draw, const TailLayout* layout,
              ColumnCounts& hits) {
    constexpr int kRowHeight = 300;
    const bool isFirst = row == kHeadingRows;
    grid.SetRowHeight(row, kRowHeight);
    FillDrawCells(grid, row, draw);
    const std::string list = FillBallRows(grid, row, draw, layout);
    const int same = CountSameCells(grid, row, kFirstBallCol, kLastBallCol);
    if (!isFirst) {
        grid.SetCell(row, kRepeatCol, std::to_string(same));
        if (same > 0) hits.Add(kRepeatCol);
    }
    const int emptyRows = CountEmptyRows(list, kLastRowCountCol - kFirstRowCountCol + 1);
    grid.SetCell(row, kEmptyRowsCol, std::to_string(emptyRows));
    if (emptyRows > 0) hits.Add(kEmptyRowsCol);
    FillRowCounts(grid, list, row);
    PaintCells(grid, row, kFirstBallCol, kLastBallCol, kChartBand);
    PaintCells(grid, row, kFirstRowCountCol, kLastRowCountCol, kChartBand);
    if (!isFirst) {
        const int sameCounts = CountSameCells(grid, row, kFirstRowCountCol, kLastRowCountCol);
        grid.SetCell(row, kSameCountsCol, std::to_string(sameCounts));
    }
}

}  // namespace

std::string TailLayoutHelp() {
    std::string help;
    char letter = 'A';
    for (const TailLayout& layout : kTailLayouts) {
        help += std::string(1, letter++) + "型排列\n";
        for (const std::string_view row : layout.rows) help += std::string(row) + "\n";
    }
    return help;
}

std::optional<GridReport> BuildRowColumnChart(Session& session, const PeriodRange& range,
                                              BallOrder order, int layoutIndex) {
    if (!CheckPeriod(session, range)) return std::nullopt;
    const auto draws = order == BallOrder::kAsDrawn ? ReadDrawsInDrawnOrder(session, range)
                                                    : ReadDraws(session, range);
    if (!draws) return std::nullopt;
    if (draws->empty()) {
        session.host.ShowMessage("无数据！");
        return std::nullopt;
    }
    const auto index = static_cast<std::size_t>(layoutIndex);
    const TailLayout* layout = index < kTailLayouts.size() ? &kTailLayouts[index] : nullptr;
    const int count = static_cast<int>(draws->size());
    GridReport report{EmptyChart(count), DrawsCaption(draws->size())};
    ResultGrid& grid = report.grid;
    ColumnCounts hits(grid.cols());
    int row = kHeadingRows;
    for (const Draw& draw : *draws) FillDraw(grid, row++, draw, layout, hits);
    PaintCells(grid, 1, kFirstBallCol, kLastBallCol, kChartBand);
    const int rateRow = grid.AddRow();
    grid.footRow = rateRow;
    WriteSmallRates(hits, grid, rateRow, kRepeatCol, kRepeatCol, count - 1);
    WriteSmallRates(hits, grid, rateRow, kRepeatCol + 1, kEmptyRowsCol, count);
    return report;
}

}  // namespace ssq
