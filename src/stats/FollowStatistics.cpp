#include "stats/FollowStatistics.h"

#include <algorithm>
#include <vector>

#include "base/combinations.h"
#include "base/numbers.h"
#include "base/text.h"
#include "chance/Chance.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

constexpr int kWholeCol = 2;
constexpr int kFirstPartCol = 3;
constexpr int kLargestPart = 3;

constexpr Rgb kOneHit{236, 241, 241};
constexpr Rgb kTwoHits{236, 241, 200};
constexpr Rgb kWholeHits{236, 241, 247};

// The list with two digits a number; empty items drop out.
std::string PaddedList(const std::string& list) {
    std::vector<std::string> items = Split(list, ",");
    std::erase_if(items, [](const std::string& item) { return Trim(item).empty(); });
    return PadNumberList(Join(items, ","));
}

std::vector<std::string> PartsOf(const std::string& list, int size) {
    std::vector<std::string> parts = size == 1   ? ComboList1(list)
                                     : size == 2 ? ComboList2(list)
                                                 : ComboList3(list);
    parts.pop_back();  // the empty element at the end
    return parts;
}

std::vector<int> NumbersOf(const std::string& list) {
    std::vector<int> numbers;
    for (const std::string& item : Split(list, ",")) {
        numbers.push_back(
            static_cast<int>(std::clamp<std::int64_t>(WholePart(item), 0, kReds + 1)));
    }
    return numbers;
}

int DrawnOf(const std::vector<int>& numbers, const Draw& draw) {
    return static_cast<int>(
        std::ranges::count_if(numbers, [&](int number) { return draw.Has(number); }));
}

ResultGrid EmptyGrid(const std::vector<std::string>& parts, int partSize, int draws) {
    const bool triples = partSize == 3;
    ColumnTable columns{{"期号", 700}, {"开奖号码", 1800}, {"全码", 550}};
    for (const std::string& part : parts) {
        columns.push_back({PadNumberList(part), triples ? 630 : 550});
    }
    ResultGrid grid = MakeGrid(columns, draws + 3, 1, 2, 300);
    if (triples) {
        for (int col = kFirstPartCol; col < grid.cols(); ++col) {
            grid.SetFont(0, col, "Arial Narrow", 8);
        }
    }
    return grid;
}

void WriteRates(const ColumnCounts& counts, int draws, ResultGrid& grid) {
    const int row = draws + 1;
    grid.footRow = row;
    grid.SetRowHeight(row, 350);
    grid.SetCell(row, 0, "共" + std::to_string(draws) + "期");
    grid.SetCell(row, 1, "命中率");
    counts.WriteRates(grid, row, kWholeCol, grid.cols() - 1, draws);
}

std::string Remark(const std::vector<int>& list) {
    RedSet different;
    for (const int number : list) different.Add(number);
    std::string text = "机会线：全码 " + InPercent(ChanceOfAnyHit(different.Count()));
    for (int part = 1; part <= kLargestPart; ++part) {
        text += "，" + std::to_string(part) + "码 " + InPercent(ChanceOfAnyHit(part));
    }
    return text + "。";
}

}  // namespace

bool CheckNumberList(Host& host, std::string_view list) {
    if (IsNumeric(Replace(Trim(list), ",", "0"))) return true;
    host.ShowMessage("应该输入数字!");
    return false;
}

std::optional<GridReport> BuildFollowStatistics(Session& session, const FollowRequest& request,
                                                Run& run) {
    const std::string list = PaddedList(request.list);
    if (list.empty() || !CheckPeriod(session, request.range)) return std::nullopt;
    const auto draws = ReadDraws(session, request.range);
    if (!draws) return std::nullopt;

    const std::vector<std::string> parts = PartsOf(list, request.partSize);
    std::vector<std::vector<int>> groups{NumbersOf(list)};  // from kWholeCol on
    for (const std::string& part : parts) groups.push_back(NumbersOf(part));

    const int count = static_cast<int>(draws->size());
    ResultGrid grid = EmptyGrid(parts, request.partSize, count);
    ColumnCounts counts(grid.cols());
    for (int row = 1; row <= count; ++row) {
        if (!run.Step(row, count)) return std::nullopt;
        const Draw& draw = (*draws)[static_cast<std::size_t>(row - 1)];
        grid.SetCell(row, 0, ShortIssue(draw.issue));
        grid.SetCell(row, 1, draw.reds);
        int col = kWholeCol;
        for (const std::vector<int>& group : groups) {
            const int drawn = DrawnOf(group, draw);
            grid.SetCell(row, col, std::to_string(drawn));
            if (col > kWholeCol && drawn == 1) grid.SetBack(row, col, kOneHit);
            if (col > kWholeCol && drawn == 2) grid.SetBack(row, col, kTwoHits);
            if (drawn > 0) counts.Add(col);
            ++col;
        }
        grid.SetBack(row, kWholeCol, kWholeHits);
    }
    WriteRates(counts, count, grid);
    return GridReport{std::move(grid), {}, count > 0 ? Remark(groups.front()) : std::string()};
}

}  // namespace ssq
