#include "stats/RedCombinations.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <vector>

#include "base/combinations.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/AppendMissing.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr const char* kPositions = "1,2,3,4,5,6";

// A column such as a124: the reds at the positions 1, 2 and 4.
struct Combination {
    std::string column;
    std::vector<std::size_t> positions;  // from 0
};

void AddCombinations(const std::vector<std::string>& list, std::vector<Combination>& combinations) {
    for (const std::string& item : list) {
        if (item.empty()) continue;
        Combination& combination = combinations.emplace_back();
        combination.column = "a";
        for (const std::string& position : Split(item, ",")) {
            combination.column += position;
            combination.positions.push_back(static_cast<std::size_t>(WholePart(position)) - 1);
        }
    }
}

std::vector<Combination> Pairs() {
    std::vector<Combination> pairs;
    AddCombinations(ComboList2(kPositions), pairs);
    return pairs;
}

std::vector<Combination> PairsToQuadruples() {
    std::vector<Combination> combinations = Pairs();
    AddCombinations(ComboList3(kPositions), combinations);
    AddCombinations(ComboList4(kPositions), combinations);
    return combinations;
}

std::string ColumnNames(const std::vector<Combination>& combinations) {
    std::vector<std::string> names;
    names.reserve(combinations.size());
    for (const Combination& combination : combinations) names.push_back(combination.column);
    return Join(names, ",");
}

using Numbers = std::vector<std::int64_t>;

Numbers Gaps(const Draw& draw, const std::vector<Combination>& pairs) {
    Numbers gaps;
    for (const auto& [column, at] : pairs) {
        gaps.push_back(std::abs(draw.balls[at[0]] - draw.balls[at[1]]) - 1);
    }
    return gaps;
}

Numbers Sums(const Draw& draw, const std::vector<Combination>& combinations) {
    Numbers sums;
    for (const auto& [column, positions] : combinations) {
        sums.push_back(std::accumulate(
            positions.begin(), positions.end(), std::int64_t{0},
            [&](std::int64_t sum, std::size_t at) { return sum + draw.balls[at]; }));
    }
    return sums;
}

// A row of either table: the issue, the balls and the values.
Values RowOf(const Draw& draw, const Numbers& numbers) {
    std::vector<std::string> balls;
    for (const int ball : draw.balls) balls.push_back(TwoDigits(ball));
    Values row{WholePart(draw.issue), Join(balls, ",")};
    row.insert(row.end(), numbers.begin(), numbers.end());
    return row;
}

// For a row of the issue, the balls and these columns.
std::string InsertStatement(const std::string& table, const std::string& columns) {
    std::string marks = "?,?";
    for (std::size_t column = 0; column < Split(columns, ",").size(); ++column) marks += ",?";
    return "Insert into " + table + "(kjqh,kjhm," + columns + ") values(" + marks + ")";
}

// How many gaps equal those of the draw before; the last one, a56, is not compared.
std::int64_t RepeatedGaps(const Numbers& gaps, const Numbers& before) {
    return std::inner_product(gaps.begin(), gaps.end() - 1, before.begin(), std::int64_t{0},
                              std::plus<>(), std::equal_to<>());
}

bool RebuildGaps(Session& session) {
    const std::vector<Combination> pairs = Pairs();
    const std::string insert = InsertStatement("jiangeTongji", ColumnNames(pairs) + ",ch");
    const auto append = [&](std::span<const Draw> upTo) {
        const Numbers gaps = Gaps(upTo.back(), pairs);
        Values row = RowOf(upTo.back(), gaps);
        row.emplace_back(upTo.size() > 1 ? RepeatedGaps(gaps, Gaps(upTo[upTo.size() - 2], pairs))
                                         : 0);
        return ExecuteOrTell(session, insert, row);
    };
    return ExecuteOrTell(session, "Delete from jiangeTongji") &&
           AppendMissing(session, "jiangeTongji", 0, append);
}

bool AppendSums(Session& session) {
    const std::vector<Combination> combinations = PairsToQuadruples();
    const std::string insert = InsertStatement("hezitj", ColumnNames(combinations));
    return AppendMissing(session, "hezitj", 0, [&](std::span<const Draw> upTo) {
        return ExecuteOrTell(session, insert, RowOf(upTo.back(), Sums(upTo.back(), combinations)));
    });
}

struct Band {
    int first;
    int last;
};

// What tells the two tables apart.
struct CombinationTable {
    const char* name;
    bool (*bringLevel)(Session& session);
    std::string columns;  // as they are shown
    std::vector<Band> bands;
};

// Whether the table lacks the newest draw, or can't be asked.
bool IsStale(Session& session, const std::string& table) {
    std::string errorText;
    Recordset rows;
    return !session.connection.OpenQuery(
               "Select kjqh from " + table + " where kjqh=" + session.LatestIssue, errorText,
               rows) ||
           rows.eof() || rows.Int(0) == 0;
}

constexpr int kFirstValueCol = 2;

ResultGrid EmptyGrid(const Recordset& rows, const CombinationTable& table) {
    ColumnTable columns{{"期号", 700}, {"开奖号码", 1800}};
    for (int field = kFirstValueCol; field < rows.FieldCount(); ++field) {
        columns.push_back({rows.FieldName(field), 550});
    }
    columns.push_back({"上重", 550});
    ResultGrid grid = MakeGrid(columns, rows.recordcount() + 3, 1, kFirstValueCol, 300);
    for (int row = 0; row < grid.rows(); ++row) {
        for (const auto& [first, last] : table.bands) PaintCells(grid, row, first, last, kStripe);
        grid.SetBack(row, grid.cols() - 1, kStripe);
    }
    return grid;
}

ResultGrid Display(Recordset& rows, const CombinationTable& table) {
    ResultGrid grid = EmptyGrid(rows, table);
    const int draws = rows.recordcount();
    const int lastCol = grid.cols() - 1;
    ColumnCounts repeats(grid.cols());
    ColumnCounts odds(grid.cols());
    for (int row = 1; row <= draws; ++row, rows.MoveNext()) {
        grid.SetCell(row, 0, ShortIssue(rows.Text(0)));
        grid.SetCell(row, 1, rows.Text(1));
        int repeated = 0;
        for (int col = kFirstValueCol; col < lastCol; ++col) {
            grid.SetCell(row, col, rows.Text(col));
            if (rows.Int(col) % 2 != 0) odds.Add(col);
            if (row == 1 || grid.cell(row, col) != grid.cell(row - 1, col)) continue;
            ++repeated;
            repeats.Add(col);
            grid.SetBack(row, col, kRepeatMark);
        }
        if (row == 1) continue;
        grid.SetCell(row, lastCol, std::to_string(repeated));
        if (grid.cell(row - 1, lastCol) == grid.cell(row, lastCol)) repeats.Add(lastCol);
    }
    grid.footRow = draws + 1;
    grid.SetCell(draws + 1, 0, "共" + std::to_string(draws) + "期");
    grid.SetCell(draws + 1, 1, "与上期重复概率");
    repeats.WriteRates(grid, draws + 1, kFirstValueCol, lastCol, std::max(draws - 1, 0));
    grid.SetCell(draws + 2, 1, "奇数概率");
    odds.WriteRates(grid, draws + 2, kFirstValueCol, lastCol - 1, draws);
    return grid;
}

std::optional<GridReport> ShowTable(Session& session, const PeriodRange& range,
                                    const CombinationTable& table) {
    if (!CheckPeriod(session, range)) return std::nullopt;
    // What could not be brought level has been told; what there is, is shown.
    if (IsStale(session, table.name)) static_cast<void>(table.bringLevel(session));
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select kjqh as 开奖期号,kjhm as 开奖号码," + table.columns + " from " +
                         table.name + " where kjqh>=" + range.start + " and kjqh<=" + range.end +
                         " order by kjqh asc",
                     rows)) {
        return std::nullopt;
    }
    return GridReport{Display(rows, table), {}};
}

}  // namespace

std::optional<GridReport> BuildGaps(Session& session, const PeriodRange& range) {
    // The neighbours first, then the other pairs by their first position.
    return ShowTable(session, range,
                     {"jiangeTongji",
                      RebuildGaps,
                      "a12,a23,a34,a45,a56,a13,a14,a15,a16,a24,a25,a26,a35,a36,a46",
                      {{7, 11}}});
}

std::optional<GridReport> BuildSums(Session& session, const PeriodRange& range) {
    return ShowTable(
        session, range,
        {"hezitj", AppendSums, ColumnNames(PairsToQuadruples()), {{12, 21}, {32, 41}}});
}

}  // namespace ssq
