#include "stats/HeatRanking.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "chance/Chance.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"
#include "ui/Run.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kFirstHeatCol = 2;  // of position 1
constexpr int kHitsCol = kFirstHeatCol + kReds;
constexpr int kFirstZoneCol = kHitsCol + 1;
constexpr int kRepeatsCol = kFirstZoneCol + kNumberZones;
constexpr int kRowHeight = 300;

ResultGrid EmptyGrid(int rows) {
    ColumnTable columns{{"期号", 700}, {"开奖号码", 1800}};
    AddTwoDigits(columns, 1, kReds, 510);
    columns.push_back({"红球列位置", 1800});
    AddNumbered(columns, 1, kNumberZones, 550, {}, "区");
    columns.push_back({"重号", 550});
    ResultGrid grid = MakeGrid(columns, rows, 1, kFirstHeatCol, kRowHeight);
    grid.SetMergeRow(0);
    return grid;
}

// The zones 2 and 4.
void PaintZones(ResultGrid& grid, int row) {
    for (int position = 1; position <= kReds; ++position) {
        const int col = kFirstHeatCol + position - 1;
        if (NumberZone(position) % 2 == 0) grid.SetBack(row, col, kStripe);
    }
}

void WriteOrder(const HeatOrder& order, ResultGrid& grid, int row) {
    for (int place = 0; place < kReds; ++place) {
        const int number = order.numbers[static_cast<std::size_t>(place)];
        grid.SetCell(row, kFirstHeatCol + place, TwoDigits(number));
        if (place >= order.drawn) grid.SetFore(row, kFirstHeatCol + place, kBlueInk);
    }
}

// The heat positions of the draw's reds.
RedSet HitPositions(const HeatOrder& order, const Draw& draw) {
    RedSet positions;
    for (int position = 1; position <= kReds; ++position) {
        if (draw.Has(order.numbers[static_cast<std::size_t>(position - 1)]))
            positions.Add(position);
    }
    return positions;
}

// The draws of a run: all of them, oldest first, and where its rows lie among them.
struct Stretch {
    std::vector<Draw> history;
    std::size_t first = 0;   // of the range
    std::size_t behind = 0;  // the last of the range
    std::size_t end = 0;     // of the last issue, also where the range is empty
    std::size_t window = 0;  // draws to look back

    int count() const { return behind > first ? static_cast<int>(behind - first) : 0; }

    // The newest draws before the one at `index`.
    HeatOrder OrderBefore(std::size_t index) const {
        const std::size_t length = std::min(window, index);
        return HeatOrderOf(std::span(history).subspan(index - length, length));
    }
};

// Nothing when the last issue was never drawn.
std::optional<Stretch> FindStretch(std::vector<Draw> history, const HeatRequest& request) {
    Stretch stretch{.history = std::move(history)};
    const auto& draws = stretch.history;
    const auto find = [&](const std::string& issue) {
        return static_cast<std::size_t>(std::ranges::lower_bound(draws, issue, {}, &Draw::issue) -
                                        draws.begin());
    };
    stretch.first = find(request.range.start);
    stretch.end = find(request.range.end);
    if (stretch.end == draws.size() || draws[stretch.end].issue != request.range.end) {
        return std::nullopt;
    }
    stretch.behind = stretch.end + 1;
    stretch.window =
        request.window == kWholeHistory
            ? stretch.end
            : static_cast<std::size_t>(std::max<std::int64_t>(WholePart(request.window), 0));
    return stretch;
}

bool EmptyScratch(Session& session) {
    return ExecuteOrTell(session, "delete from rtoc");
}

// Leaves the balls of the window that ends at the issue in the scratch table.
bool FillScratch(Session& session, const std::string& issue, std::size_t window) {
    WriteBatch batch(session.host, session.connection);
    if (!EmptyScratch(session)) return false;
    for (int ball = 1; ball <= kRedsInDraw; ++ball) {
        if (!ExecuteOrTell(session, "insert into rtoc(colvalue) select  top " +
                                        std::to_string(window) + " a" + std::to_string(ball) +
                                        " from cphm where kjqh<=" + issue +
                                        " order by kjqh desc")) {
            return false;
        }
    }
    return CommitOrTell(session, batch);
}

// Writes the row of a draw and returns the heat positions of its reds; `before` are those of the
// row above.
RedSet WriteRow(const HeatOrder& order, const Draw& draw, RedSet before, ResultGrid& grid, int row,
                ColumnCounts& counts) {
    WriteOrder(order, grid, row);
    const RedSet hits = HitPositions(order, draw);
    std::array<int, kNumberZones> zones{};
    for (int position = 1; position <= kReds; ++position) {
        if (!hits.Has(position)) continue;
        grid.SetBack(row, kFirstHeatCol + position - 1, kDrawnMark);
        ++zones[static_cast<std::size_t>(NumberZone(position) - 1)];
    }
    grid.SetCell(row, kHitsCol, hits.ToList());
    const auto count = [&](int col, int value) {
        grid.SetCell(row, col, std::to_string(value));
        if (value > 0) counts.Add(col);
    };
    int col = kFirstZoneCol;
    for (const int zone : zones) count(col++, zone);
    count(kRepeatsCol, hits.CountIn(before));
    return hits;
}

// The rows of the range; false when the run has ended.
bool WriteRows(Session& session, const Stretch& stretch, Run& run, ResultGrid& grid,
               ColumnCounts& counts, bool& failed) {
    RedSet hits;
    for (int row = 1; row <= stretch.count(); ++row) {
        if (!run.Step(row, stretch.count())) return false;
        const std::size_t index = stretch.first + static_cast<std::size_t>(row - 1);
        const Draw& draw = stretch.history[index];
        grid.SetCell(row, 0, ShortIssue(draw.issue));
        grid.SetCell(row, 1, draw.reds);
        PaintZones(grid, row);
        // The scratch table is of no use to rows ranked in memory, but a run without it must not
        // begin.
        if (row == 1 && !EmptyScratch(session)) {
            failed = true;
            return false;
        }
        hits = WriteRow(stretch.OrderBefore(index), draw, hits, grid, row, counts);
    }
    return true;
}

// The order for the next draw; false after showing the store's error text.
bool WriteForecast(Session& session, const Stretch& stretch, ResultGrid& grid, int row) {
    const std::string& issue = stretch.history[stretch.end].issue;
    const std::int32_t next = NextIssue(session, issue);
    if (next == 0) return false;
    grid.SetCell(row, 1, std::to_string(next) + "期统计");
    PaintZones(grid, row);
    if (!FillScratch(session, issue, stretch.window)) return false;
    WriteOrder(stretch.OrderBefore(stretch.end + 1), grid, row);
    return true;
}

// The first row has no row above it to repeat.
std::string Remark(int rows) {
    if (rows == 0) return {};
    constexpr int kWideZone = 7;
    constexpr int kLastZone = 5;
    return "机会线：1～4区 " + InPercent(ChanceOfAnyHit(kWideZone)) + "，5区 " +
           InPercent(ChanceOfAnyHit(kLastZone)) + "，重号 " +
           InPercent(ChanceOfAnyHit(kRedsInDraw) * (rows - 1) / rows) + "。";
}

}  // namespace

HeatOrder HeatOrderOf(std::span<const Draw> window) {
    std::array<int, kReds + 1> counts{};
    for (const Draw& draw : window) {
        for (const int ball : draw.balls) {
            if (ball >= 1 && ball <= kReds) ++counts[static_cast<std::size_t>(ball)];
        }
    }
    HeatOrder order;
    for (int number = 1; number <= kReds; ++number) {
        order.numbers[static_cast<std::size_t>(number - 1)] = number;
        if (counts[static_cast<std::size_t>(number)] > 0) ++order.drawn;
    }
    std::ranges::sort(order.numbers, [&](int left, int right) {
        const int l = counts[static_cast<std::size_t>(left)];
        const int r = counts[static_cast<std::size_t>(right)];
        return l != r ? l > r : left < right;
    });
    return order;
}

std::vector<NumberSource> HeatSources(const std::string& window) {
    const bool whole = window == kWholeHistory;
    const auto length = static_cast<std::size_t>(std::max<std::int64_t>(WholePart(window), 0));
    const auto named = [whole, length](std::span<const Draw> earlier, bool hot) {
        constexpr std::size_t kThird = kReds / 3;
        RedSet numbers;
        // The whole history is taken as before the next draw: all but the oldest.
        const std::size_t draws = whole && !earlier.empty() ? earlier.size() - 1 : length;
        if (draws == 0 || earlier.size() < draws) return numbers;
        const HeatOrder order = HeatOrderOf(earlier.last(draws));
        for (std::size_t i = 0; i < kThird; ++i) {
            numbers.Add(order.numbers[hot ? i : order.numbers.size() - 1 - i]);
        }
        return numbers;
    };
    const std::string period = whole ? window : "近" + std::to_string(length) + "期";
    return {{.name = period + "热号",
             .numbers = [named](std::span<const Draw> earlier) { return named(earlier, true); }},
            {.name = period + "冷号",
             .isAgainst = true,
             .numbers = [named](std::span<const Draw> earlier) { return named(earlier, false); }}};
}

HeatOutcome BuildHeatRanking(Session& session, const HeatRequest& request, Run& run) {
    if (!CheckPeriod(session, request.range)) return {.report = {}, .failed = true};
    auto history = ReadAllDraws(session);
    if (!history) return {.report = {}, .failed = true};
    const auto stretch = FindStretch(std::move(*history), request);
    if (!stretch) {
        session.host.ShowMessage("期号填写错误！");
        return {.report = {}, .failed = true};
    }
    const int draws = stretch->count();
    HeatOutcome outcome{GridReport{
        EmptyGrid(draws + 2), "分期冷热分析结果 共" + std::to_string(draws) +
                                  "期数据【排列顺序是以热到冷排列，排在最前面的是最热的号码】"}};
    ResultGrid& grid = outcome.report->grid;
    ColumnCounts counts(grid.cols());
    if (!WriteRows(session, *stretch, run, grid, counts, outcome.failed)) return outcome;
    grid.footRow = draws + 1;
    outcome.failed = !WriteForecast(session, *stretch, grid, draws + 1);
    if (outcome.failed) return outcome;
    const int rates = grid.AddRow();
    grid.SetRowHeight(rates, kRowHeight);
    grid.SetCell(rates, 1, "概率");
    counts.WriteRates(grid, rates, kFirstZoneCol, kRepeatsCol, draws);
    outcome.report->remark = Remark(draws);
    return outcome;
}

HeatCourse HeatCourseOf(const ResultGrid& grid, const std::string& number) {
    HeatCourse course;
    const int last = grid.rows() - 2;
    course.range = grid.cell(1, 0) + "--" + grid.cell(last - 1, 0) + "期";
    for (int row = 1; row <= last; ++row) {
        int col = kFirstHeatCol;
        while (col <= kHitsCol && grid.cell(row, col) != number) ++col;
        // Rows of a run that failed hold no order: their points lie below the axis.
        course.positions.push_back(col <= kHitsCol ? col - kFirstHeatCol + 1 : 0);
        const bool isDrawn = Contains(grid.cell(row, 1), number);
        course.labels.push_back(isDrawn ? "●" : std::to_string(row));
    }
    return course;
}

bool IsRedText(const std::string& text) {
    const RedSet number = RedSet::FromList(text);
    return number.Count() == 1 && number.ToList() == text;
}

}  // namespace ssq
