#include "charts/NumberSegments.h"

#include <array>
#include <cstdlib>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "charts/ChartGround.h"
#include "charts/rowLngZST.h"
#include "draws/AppendMissing.h"
#include "draws/Draw.h"
#include "draws/queries.h"
#include "ui/palette.h"

namespace ssq {

namespace {

// A stored draw as the rows after it need it; zeros where there is none.
struct Placed {
    std::int64_t place = 0;
    int segment = 0;
};

// The four draws before one, newest first.
using History = std::array<Placed, 4>;

struct Flags {
    std::array<int, 3> skips{};  // back after one, two or three draws elsewhere
    std::array<int, 3> edges{};  // one, two or three segments from the draw before
    int repeat = 0;
};

Flags FlagsOf(int segment, const History& history) {
    Flags flags;
    const int last = history[0].segment;
    if (last != 0) {
        flags.repeat = segment == last ? 1 : 0;
        const int step = std::abs(segment - last);
        if (step >= 1 && step <= 3) flags.edges[static_cast<std::size_t>(step - 1)] = 1;
    }
    // The first draw back in this segment tells which skip it is, if any.
    std::size_t back = 0;
    while (back < history.size() && history[back].segment != segment) ++back;
    if (back > 0 && back < history.size()) flags.skips[back - 1] = 1;
    return flags;
}

bool ReadHistory(Session& session, const std::string& issue, History& history) {
    Recordset rows;
    const std::string sql = "Select top 4 wz,qd from hm1107568 where kjqh<? order by kjqh desc";
    if (!QueryOrTell(session, sql, {issue}, rows)) return false;
    for (Placed& placed : history) {
        if (rows.eof()) break;
        placed = {rows.Int(0), ToInt(rows.Int(1))};
        rows.MoveNext();
    }
    return true;
}

bool AddSegmentRow(Session& session, const Draw& draw) {
    History history{};
    if (!ReadHistory(session, draw.issue, history)) return false;
    std::vector<std::string> balls;
    for (const int ball : draw.balls) balls.push_back(TwoDigits(ball));
    const std::string reds = Join(balls, ",");
    const std::int32_t place = CombinationRank(reds);
    const int segment = SegmentOf(place);
    const Placed& last = history[0];
    const std::int64_t step = last.place == 0 ? 0 : std::abs(last.place - place);
    const Flags flags = FlagsOf(segment, history);
    Values values = {draw.issue, reds};
    const std::initializer_list<std::int64_t> numbers = {
        segment,        place,          segment,        flags.skips[0],
        flags.skips[1], flags.skips[2], flags.edges[0], flags.edges[1],
        flags.edges[2], flags.repeat,   step,           SegmentOf(step)};
    values.insert(values.end(), numbers.begin(), numbers.end());
    return ExecuteOrTell(session,
                         "Insert into hm1107568(kjqh,kjhm,a" + std::to_string(segment) +
                             ",wz,qd,t1,t2,t3,b1,b2,b3,ch,sqc,sqcqd) "
                             "values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                         values);
}

enum Col {
    kBlue = 2,
    kSegment,
    kFirstSegment,
    kFirstFlag = kFirstSegment + kSegments,
    kLastFlag = 26,
    kStepSegment = 29
};

// Segments above this one count in the rate of the segment column.
constexpr int kLowerHalf = 7;

std::string ChartSql(const PeriodRange& range) {
    std::string segments;
    for (int segment = 1; segment <= kSegments; ++segment) {
        segments += "hm1107568.a" + std::to_string(segment) + ", ";
    }
    return "SELECT hm1107568.kjqh AS 开奖期号, hm1107568.kjhm AS 开奖号码, cphm.a7 AS 蓝球, "
           "hm1107568.qd AS 区段号, " +
           segments +
           "hm1107568.t1 AS 跳1, hm1107568.t2 AS 跳2, hm1107568.t3 AS 跳3, hm1107568.b1 AS 边1, "
           "hm1107568.b2 AS 边2, hm1107568.b3 AS 边3, hm1107568.ch AS 重号, hm1107568.wz AS 位置, "
           "hm1107568.sqc AS 上期差, hm1107568.sqcqd AS 上差区断 "
           "FROM hm1107568 INNER JOIN cphm ON hm1107568.kjqh = cphm.kjqh where hm1107568.kjqh>=" +
           range.start + " and hm1107568.kjqh<=" + range.end + " order by hm1107568.kjqh asc";
}

bool IsTwoDigits(int col) {
    return col == kBlue || col == kSegment || col == kStepSegment;
}

void FillDraw(ResultGrid& grid, int row, const Recordset& rows, ColumnCounts& hits) {
    for (int col = 0; col < grid.cols(); ++col) {
        grid.SetCell(row, col, IsTwoDigits(col) ? TwoDigits(rows.Int(col)) : rows.Text(col));
        const bool isHit =
            col >= kFirstSegment &&
            (col < kFirstFlag ? !rows.IsNull(col) : col <= kLastFlag && rows.Int(col) == 1);
        if (isHit) {
            grid.SetBack(row, col, kRepeatMark);
            hits.Add(col);
        }
    }
    if (rows.Int(kSegment) > kLowerHalf) hits.Add(kSegment);
}

}  // namespace

std::string SegmentList() {
    std::string list = "号码区段的起始位置和结束位置：\n";
    for (int segment = 1; segment <= kSegments; ++segment) {
        list += std::to_string(segment) +
                "区段:" + std::to_string((segment - 1) * kSegmentWidth + 1) + "-------" +
                std::to_string(segment * kSegmentWidth) + "\n";
    }
    return list;
}

bool UpdateSegmentTable(Session& session) {
    return AppendMissing(session, "hm1107568", 0, [&](std::span<const Draw> upTo) {
        return AddSegmentRow(session, upTo.back());
    });
}

std::optional<GridReport> BuildSegmentChart(Session& session, const PeriodRange& range) {
    if (!CheckPeriod(session, range)) return std::nullopt;
    UpdateSegmentTable(session);  // what it had to leave out is not in the chart
    Recordset rows;
    if (!QueryOrTell(session, ChartSql(range), rows)) return std::nullopt;

    ColumnTable columns;
    for (int field = 0; field < rows.FieldCount(); ++field) {
        columns.push_back({rows.FieldName(field)});
    }
    const int draws = rows.recordcount();
    GridReport report{MakeGrid(columns, draws + 2, 1, 3), {}};
    ResultGrid& grid = report.grid;
    grid.SetMergeRow(0);
    grid.SetEvenCols(kFirstSegment, kFirstFlag - 1);
    grid.SetNames(kSegment, kSegment);
    grid.SetNames(kStepSegment, kStepSegment);
    grid.paleText = "0";
    ColumnCounts hits(grid.cols());
    for (int row = 1; row < grid.rows(); ++row) {
        PaintCells(grid, row, kFirstSegment, kFirstFlag - 1, kSkyMark);
        PaintCells(grid, row, kFirstFlag, kLastFlag, kStripe);
    }
    for (int row = 1; !rows.eof(); rows.MoveNext()) FillDraw(grid, row++, rows, hits);
    grid.footRow = draws + 1;
    grid.SetCell(draws + 1, 1, "共" + std::to_string(draws) + "期");
    WriteChartRates(hits, grid, draws + 1, kSegment, kLastFlag, draws);
    return report;
}

}  // namespace ssq
