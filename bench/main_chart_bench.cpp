// The pattern counters of the trend chart on number sets against the same counters as a literal
// text search, which reads every draw back from the grid and looks up tokens.
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "Ratio.h"
#include "base/numbers.h"
#include "base/text.h"
#include "charts/MainTrendChart.h"
#include "charts/TrendCounters.h"
#include "draws/Public_var.h"
#include "support/TestDatabase.h"

namespace {

using ssq::Contains;
using ssq::IntList;
using ssq::Split;
using ssq::TwoDigits;
using ssq::Val;
using Text = std::string;

bool In(int value, const Text& list) {
    return Contains(list, TwoDigits(value));
}

template <typename Rule>
int Count(const Text& cur, Rule scores) {
    int count = 0;
    for (const int x : IntList(cur)) count += static_cast<int>(scores(x));
    return count;
}

int Edge(const Text& cur, const Text& p1, int d) {
    return Count(cur, [&](int x) { return In(x + d, p1) || In(x - d, p1); });
}

int RowSkip(const Text& cur) {
    Text seen;
    return Count(cur, [&](int x) {
        int score = 0;
        if (In(x + 2, cur) && !In(x + 1, cur)) {
            ++score;
            seen += TwoDigits(x) + ",";
        }
        if (In(x - 2, cur) && !In(x - 2, seen) && !In(x - 1, cur)) ++score;
        return score;
    });
}

int Gap1(const Text& cur) {
    const auto items = Split(cur, ",");
    int count = 0;
    for (std::size_t i = 0; i + 1 < items.size(); ++i) {
        if (TwoDigits(std::abs(static_cast<int>(Val(items[i]) - Val(items[i + 1])))) == "01") {
            ++count;
        }
    }
    return count;
}

int MirrorPairs(const Text& cur) {
    return Count(cur,
                 [&](int x) {
                     const Text token = TwoDigits(x);
                     const Text swapped{token[1], token[0]};
                     return swapped != token && Contains(cur, swapped);
                 }) /
           2;
}

int TailGroups(const Text& cur, const Text* other = nullptr) {
    Text tails;
    for (const int x : IntList(cur)) {
        const Text tail = TwoDigits(x).substr(1);
        if (Contains(tails, tail)) continue;
        if (other) {
            bool found = false;
            for (const int y : IntList(*other)) found = found || TwoDigits(y).substr(1) == tail;
            if (!found) continue;
        }
        tails += tail;
    }
    return static_cast<int>(tails.size());
}

int Spacing(const Text& cur, int d) {
    int left = 5;
    return Count(cur, [&](int x) { return left-- > 0 && In(x + d + 1, cur); });
}

int GapPattern(const Text& cur, const Text& pattern) {
    const auto items = Split(cur, ",");
    Text gaps;
    for (std::size_t i = 0; i + 1 < items.size(); ++i) {
        gaps += TwoDigits(std::abs(static_cast<int>(Val(items[i]) - Val(items[i + 1]))) - 1) + ",";
    }
    return Contains(gaps, pattern) ? 1 : 0;
}

// Column 1 of `row`, read from the grid from row `first` on.
Text Above(const ssq::ResultGrid& grid, int row, int back, int first) {
    return row >= first ? grid.cell(row - back, 1) : Text();
}

ssq::TrendCounts TextCounts(const ssq::ResultGrid& grid, int row) {
    const Text& cur = grid.cell(row, 1);
    const Text prev = Above(grid, row, 1, 2);
    const Text p1 = Above(grid, row, 1, 3);
    const Text p2 = Above(grid, row, 2, 3);
    const Text p3 = Above(grid, row, 3, 4);
    const Text p4 = Above(grid, row, 4, 5);
    const auto from = [&](int first, auto rule) { return row >= first ? Count(cur, rule) : 0; };
    return {
        from(1, [&](int x) { return !In(x, p1) && In(x, p2); }),
        from(1, [&](int x) { return !In(x, p1) && !In(x, p2) && In(x, p3); }),
        from(1, [&](int x) { return !In(x, p1) && !In(x, p2) && !In(x, p3) && In(x, p4); }),
        row >= 2 ? Edge(cur, prev, 1) : 0,
        row >= 2 ? Edge(cur, prev, 2) : 0,
        row >= 2 ? Edge(cur, prev, 3) : 0,
        RowSkip(cur),
        from(1, [&](int x) { return In(x, prev); }),
        Gap1(cur),
        MirrorPairs(cur),
        from(1,
             [&](int x) {
                 return (In(x + 1, p1) && In(x + 2, p2) ? 1 : 0) +
                        (In(x - 1, p1) && In(x - 2, p2) ? 1 : 0);
             }),
        TailGroups(cur),
        TailGroups(cur, &prev),
        Contains(cur, grid.cell(row, 2)) ? 1 : 0,
        from(3, [&](int x) { return In(x, p2) && (In(x + 1, p1) || In(x - 1, p1)); }),
        from(2, [&](int x) { return !In(x, prev) && In(x + 1, prev) && In(x - 1, prev); }),
        from(2, [&](int x) { return In(x + 2, cur) && !In(x + 1, cur) && In(x + 1, prev); }),
        from(2, [&](int x) { return In(x, prev) && In(x + 1, prev) && !In(x + 1, cur); }),
        from(2, [&](int x) { return In(x, prev) && In(x - 1, prev) && !In(x - 1, cur); }),
        from(3, [&](int x) { return !In(x, p1) && In(x - 1, p2) && In(x + 1, p2); }),
        from(3, [&](int x) { return !In(x, p1) && !In(x, p2) && In(x - 1, p3) && In(x + 1, p3); }),
        from(3, [&](int x) { return !In(x, p1) && In(x + 1, p1) && In(x - 1, p1) && In(x, p2); }),
        from(3,
             [&](int x) {
                 return (In(x + 1, p1) && In(x + 1, p2)) || (In(x - 1, p1) && In(x - 1, p2));
             }),
        from(2,
             [&](int x) {
                 return (In(x + 1, p1) && In(x + 2, p1)) || (In(x - 1, p1) && In(x - 2, p1));
             }),
        from(2,
             [&](int x) {
                 return (In(x + 1, p1) && In(x + 3, p1) && !In(x + 2, p1)) ||
                        (In(x - 1, p1) && In(x - 3, p1) && !In(x - 2, p1));
             }),
        from(4,
             [&](int x) {
                 return (In(x + 1, p1) && !In(x + 1, p2) && In(x + 1, p3)) ||
                        (In(x - 1, p1) && !In(x - 1, p2) && In(x - 1, p3));
             }),
        from(3,
             [&](int x) {
                 return (!In(x + 1, p1) && In(x + 1, p2) && !In(x, p1)) ||
                        (!In(x - 1, p1) && In(x - 1, p2) && !In(x, p1));
             }),
        from(2, [&](int x) { return In(x + 2, p1) && In(x - 2, p1); }),
        Spacing(cur, 3),
        from(2, [&](int x) { return In(x + 3, p1) && In(x - 3, p1); }),
        Spacing(cur, 5),
        GapPattern(cur, "00,01"),
    };
}

constexpr int kFirstCounterCol = 37;
constexpr int kRowsBelowDraws = 5;  // picks, rates and the empty row

int DrawRows(const ssq::ResultGrid& grid) {
    return grid.rows() - 1 - kRowsBelowDraws;
}

std::vector<ssq::TrendCounts> CountTexts(const ssq::ResultGrid& grid) {
    std::vector<ssq::TrendCounts> counts;
    for (int row = 1; row <= DrawRows(grid); ++row) counts.push_back(TextCounts(grid, row));
    return counts;
}

std::vector<ssq::TrendCounts> CountSets(const std::vector<ssq::Draw>& draws) {
    std::vector<ssq::TrendCounts> counts;
    for (int row = 1; row <= static_cast<int>(draws.size()); ++row) {
        counts.push_back(ssq::CountRow(draws, row));
    }
    return counts;
}

bool Shows(const ssq::ResultGrid& grid, const std::vector<ssq::TrendCounts>& counts) {
    for (std::size_t row = 0; row < counts.size(); ++row) {
        for (std::size_t i = 0; i < counts[row].size(); ++i) {
            const auto& cell =
                grid.cell(static_cast<int>(row) + 1, kFirstCounterCol + static_cast<int>(i));
            if (cell != std::to_string(counts[row][i])) return false;
        }
    }
    return true;
}

}  // namespace

int main() {
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    ssq::Session& session = database.session();
    ssq::RefreshLatestIssue(session);
    const ssq::PeriodRange all{"2003001", session.LatestIssue};
    std::optional<ssq::MainTrendChart> chart;
    const double buildSeconds =
        ssq::SecondsOf(5, [&] { chart = ssq::BuildMainTrendChart(session, all, 0); });
    const auto draws = ssq::ReadDraws(session, all);
    ssq::RequireEqual(chart && draws && DrawRows(chart->report.grid) == session.DrawCount,
                      "main chart, rows");

    const ssq::ResultGrid& grid = chart->report.grid;
    std::vector<ssq::TrendCounts> expected;
    std::vector<ssq::TrendCounts> counts;
    const double baselineSeconds = ssq::SecondsOf(3, [&] { expected = CountTexts(grid); });
    const double seconds = ssq::SecondsOf(5, [&] { counts = CountSets(*draws); });
    ssq::RequireEqual(counts == expected && Shows(grid, expected), "main chart, counters");
    ssq::PrintRatio("main chart, counters of all draws", baselineSeconds, seconds);
    ssq::PrintRatio("main chart, whole build against text counters alone", baselineSeconds,
                    buildSeconds);
    return 0;
}
