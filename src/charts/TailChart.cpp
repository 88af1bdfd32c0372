#include "charts/TailChart.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "charts/ChartGround.h"
#include "charts/dapan_fx.h"
#include "charts/tails.h"
#include "draws/Draw.h"
#include "ui/palette.h"

namespace ssq {

namespace {

enum Col {
    kIssue,
    kTails,
    kDigits,
    kSameTails = 12,
    kZones,
    kSum = 16,
    kEvenOdd,
    kBigSmall,
    kPrimeComposite,
    kZoneRatio,
    kForm,
    kRowSkips,
    kEqualGaps,
    kRuns,
    kSorted,
    kSwings,
    kDistances = 32,
    kPairSums = 37,
    kLetters = 42,
    kLettersAsAbove = 45,
    kCols
};
constexpr int kRateRows = 3;

constexpr std::array<Rgb, 3> kHitBack{{kStripe, {236, 241, 200}, {236, 241, 150}}};
constexpr Rgb kSwingAsAbove{236, 241, 247};

// The numbers of a row by column; none where the column holds a text or the cell stays empty.
using Values = std::array<std::optional<int>, kCols>;

// Whether a row counts in a rate row, by its value in the column and the one above.
using Scores = bool (*)(int value, std::optional<int> above);

template <int kLeast>
bool IsAtLeast(int value, std::optional<int> /*above*/) {
    return value >= kLeast;
}
template <int kWanted>
bool Is(int value, std::optional<int> /*above*/) {
    return value == kWanted;
}
bool IsOdd(int value, std::optional<int> /*above*/) {
    return value % 2 == 1;
}
bool IsAsAbove(int value, std::optional<int> above) {
    return value == above;
}

// What the three rate rows count differs by column, whatever their labels say; null leaves the
// rate row empty there.
struct Rated {
    int firstCol;
    int lastCol;
    std::array<Scores, kRateRows> scores;
};
constexpr std::array kRated = {
    Rated{kDigits, kSameTails - 1, {IsAtLeast<1>, Is<2>, Is<0>}},
    Rated{kSameTails, kSameTails, {IsAtLeast<1>, IsAtLeast<2>, Is<0>}},
    Rated{kZones, kSum - 1, {IsAtLeast<1>, nullptr, nullptr}},
    Rated{kRowSkips, kRowSkips, {IsAtLeast<1>, Is<2>, nullptr}},
    Rated{kEqualGaps, kEqualGaps, {IsAtLeast<1>, nullptr, nullptr}},
    Rated{kRuns, kRuns, {IsAtLeast<1>, Is<2>, nullptr}},
    Rated{kSwings, kDistances - 1, {IsAtLeast<1>, Is<2>, IsAsAbove}},
    Rated{kDistances, kPairSums - 1, {IsOdd, IsAtLeast<5>, IsAsAbove}},
    Rated{kPairSums, kLetters - 1, {IsOdd, IsAtLeast<9>, IsAsAbove}},
    Rated{kLetters, kLettersAsAbove - 1, {IsAtLeast<1>, Is<2>, IsAsAbove}},
    Rated{kLettersAsAbove, kLettersAsAbove, {IsAtLeast<1>, Is<2>, Is<3>}},
};
constexpr std::array<const char*, kRateRows> kRateLabels{"期>=1命中率", "期=2命中率", "期=0命中率"};

ColumnTable Columns() {
    ColumnTable columns{{"期号"}, {"开奖号码"}};
    const auto add = [&columns](std::initializer_list<const char*> headings) {
        for (const char* heading : headings) columns.push_back({heading});
    };
    AddNumbered(columns, 0, 9, 0, "", "尾");
    add({"同尾", "一区", "二区", "三区", "尾和", "奇偶", "大小", "质合", "3区比", "ABC形态"});
    add({"横跳", "等距", "连号", "排序"});
    AddNumbered(columns, 1, kRedsInDraw, 0, "", "振");
    add({"12距", "23距", "34距", "45距", "56距", "12和", "23和", "34和", "45和", "56和"});
    add({"A型", "B型", "C型", "上重"});
    return columns;
}

struct TailRow {
    TailDigits tails;
    TailAttributes attributes;
};

template <std::size_t kSize>
void Put(Values& values, int firstCol, const std::array<int, kSize>& numbers) {
    std::copy(numbers.begin(), numbers.end(), values.begin() + firstCol);
}

int CommonLetters(const TailAttributes& a, const TailAttributes& b) {
    int common = 0;
    for (std::size_t i = 0; i < a.letters.size(); ++i) common += a.letters[i] == b.letters[i];
    return common;
}

// `above` is null for the first row.
Values ValuesOf(const TailRow& row, const TailRow* above) {
    const TailAttributes& a = row.attributes;
    TailDigits sorted = row.tails;
    std::sort(sorted.begin(), sorted.end());

    Values values;
    Put(values, kDigits, a.hits);
    values[kSameTails] = a.sameTailGroups;
    Put(values, kZones, a.zones);
    values[kSum] = a.sum;
    values[kRowSkips] = CountGap2(sorted);
    values[kEqualGaps] = CountEqualGaps(sorted);
    values[kRuns] = CountGap1(sorted);
    Put(values, kDistances, a.distance);
    Put(values, kPairSums, a.pairSum);
    Put(values, kLetters, a.letters);
    if (above) {
        Put(values, kSwings, SwingOf(row.tails, above->tails));
        values[kLettersAsAbove] = CommonLetters(a, above->attributes);
    }
    return values;
}

std::string Ratio(std::initializer_list<int> parts) {
    std::vector<std::string> texts;
    for (const int part : parts) texts.push_back(std::to_string(part));
    return Join(texts, ":");
}

void FillTexts(ResultGrid& grid, int row, const Draw& draw, const TailRow& tails) {
    const TailAttributes& a = tails.attributes;
    std::vector<std::string> list;
    for (const int tail : tails.tails) list.push_back(TwoDigits(tail));
    const std::string tailList = Join(list, ",");
    grid.SetCell(row, kIssue, Characters(draw.issue, 4));
    grid.SetCell(row, kTails, tailList);
    grid.SetCell(row, kEvenOdd, Ratio({a.even, a.odd}));
    grid.SetCell(row, kBigSmall, Ratio({a.big, a.small}));
    grid.SetCell(row, kPrimeComposite, Ratio({a.prime, a.composite}));
    grid.SetCell(row, kZoneRatio, Ratio({a.zones[0], a.zones[1], a.zones[2]}));
    grid.SetCell(row, kForm, a.form);
    grid.SetCell(row, kSorted, SortNumberList(tailList));
}

void FillValues(ResultGrid& grid, int row, const Values& values, const Values& above) {
    constexpr int kLastUnmarkedSwing = 3;
    for (int col = 0; col < kCols; ++col) {
        const auto value = values[static_cast<std::size_t>(col)];
        if (!value) continue;
        grid.SetCell(row, col, std::to_string(*value));
        if (col >= kDigits && col < kSameTails && *value >= 1 &&
            *value <= static_cast<int>(kHitBack.size())) {
            grid.SetBack(row, col, kHitBack[static_cast<std::size_t>(*value - 1)]);
        }
        if (col >= kSwings && col < kDistances && row > kLastUnmarkedSwing &&
            value == above[static_cast<std::size_t>(col)]) {
            grid.SetBack(row, col, kSwingAsAbove);
        }
    }
}

void FillRates(ResultGrid& grid, const std::vector<Values>& rows) {
    const int draws = static_cast<int>(rows.size()) - 1;
    for (int rate = 0; rate < kRateRows; ++rate) {
        const int rateRow = draws + 1 + rate;
        const auto index = static_cast<std::size_t>(rate);
        grid.SetCell(rateRow, kTails, "共" + std::to_string(draws) + kRateLabels[index]);
        for (const Rated& rated : kRated) {
            const Scores scores = rated.scores[index];
            if (!scores) continue;
            ColumnCounts counts(kCols);
            for (std::size_t row = 1; row < rows.size(); ++row) {
                for (int col = rated.firstCol; col <= rated.lastCol; ++col) {
                    const auto value = rows[row][static_cast<std::size_t>(col)];
                    const auto above = rows[row - 1][static_cast<std::size_t>(col)];
                    if (value && scores(*value, above)) counts.Add(col);
                }
            }
            WriteChartRates(counts, grid, rateRow, rated.firstCol, rated.lastCol, draws);
        }
    }
}

}  // namespace

std::optional<GridReport> BuildTailChart(Session& session, const PeriodRange& range) {
    if (!CheckPeriod(session, range)) return std::nullopt;
    const auto draws = ReadDraws(session, range);
    if (!draws) return std::nullopt;

    std::vector<TailRow> tails;
    std::vector<Values> values(1);  // the heading's row has none
    GridReport report{MakeGrid(Columns(), static_cast<int>(draws->size()) + 1 + kRateRows, 1, 2),
                      {}};
    ResultGrid& grid = report.grid;
    grid.SetMergeRow(0);
    grid.SetEvenCols(kDigits, kSameTails - 1);
    grid.paleText = "0";
    tails.reserve(draws->size());
    for (const Draw& draw : *draws) {
        const int row = static_cast<int>(values.size());
        const TailRow* above = tails.empty() ? nullptr : &tails.back();
        const TailDigits digits = TailsOf(draw.balls);
        tails.push_back({digits, AttributesOf(digits)});
        values.push_back(ValuesOf(tails.back(), above));
        FillTexts(grid, row, draw, tails.back());
        FillValues(grid, row, values.back(), values[values.size() - 2]);
    }
    grid.footRow = static_cast<int>(values.size());
    FillRates(grid, values);
    for (int row = 1; row < grid.rows(); ++row) {
        PaintCells(grid, row, kDistances, kPairSums - 1, kStripe);
        PaintCells(grid, row, kLetters, kLettersAsAbove, kStripe);
    }
    return report;
}

}  // namespace ssq
