#include "bets/BetTables.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

#include "base/combinations.h"
#include "base/numbers.h"
#include "base/text.h"
#include "bets/BetAttributes.h"
#include "bets/BetList.h"
#include "draws/Draw.h"
#include "ui/ColumnTable.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kRowHeight = 300;  // twips
constexpr int kFirstRedCol = 1;
constexpr int kFirstAttributeCol = kFirstRedCol + kRedsInDraw;
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// The attributes of the plan in its order, then those that are always shown.
std::vector<int> ShownAttributes(const BetPlan& plan) {
    std::vector<int> shown;
    const auto add = [&shown](int attribute) {
        if (attribute >= 0 && std::ranges::find(shown, attribute) == shown.end()) {
            shown.push_back(attribute);
        }
    };
    for (const BetCondition& condition : plan.conditions) add(condition.attribute);
    for (const char* name : {"和值", "跨度", "AC值"}) add(FindBetAttribute(name));
    return shown;
}

// The lines a draw failed, ascending.
std::set<int> FailedLines(const BetPlan& plan, RedSet draw, const BetVerdict& verdict) {
    std::set<int> lines;
    const auto add = [&](BetStatement statement, bool failed) {
        if (failed) lines.insert(plan.lines[static_cast<std::size_t>(statement)]);
    };
    add(BetStatement::kPool, !draw.Without(plan.pool | plan.bankers).empty());
    add(BetStatement::kBankers, !plan.bankers.Without(draw).empty());
    add(BetStatement::kKilled, !(draw & plan.killed).empty());
    for (const std::size_t condition : verdict.failed) {
        lines.insert(plan.conditions[condition].line);
    }
    return lines;
}

std::string LineList(const std::set<int>& lines) {
    std::string text;
    for (const int line : lines) text += (text.empty() ? "" : ",") + std::to_string(line);
    return text;
}

std::string BluesText(const std::vector<int>& blues, char separator) {
    std::string text;
    for (const int blue : blues) {
        if (!text.empty()) text += separator;
        text += TwoDigits(blue);
    }
    return text;
}

std::string BetLines(std::string head, std::span<const std::uint32_t> places,
                     const std::string& behind) {
    constexpr std::size_t kRedsText = 17;
    head.reserve(head.size() + places.size() * (kRedsText + behind.size() + kLineEnd.size()));
    for (const std::uint32_t place : places) {
        AppendBetText(place, head);
        head += behind;
        head += kLineEnd;
    }
    return head;
}

}  // namespace

ResultGrid ConditionTable(const BetPlan& plan, std::span<const std::int32_t> meeting) {
    const ColumnTable columns{{"行号", 600}, {"条件", 3000, Align::kLeft}, {"符合", 1100}};
    ResultGrid grid = MakeGrid(columns, 1, 1, 1, kRowHeight);
    for (std::size_t i = 0; i < std::min(meeting.size(), plan.conditions.size()); ++i) {
        const int row = grid.AddRow();
        grid.SetCell(row, 0, std::to_string(plan.conditions[i].line));
        grid.SetCell(row, 1, plan.conditions[i].text);
        grid.SetCell(row, 2, std::to_string(meeting[i]));
    }
    return grid;
}

ResultGrid BetPageTable(const BetPlan& plan, std::span<const std::uint32_t> places,
                        std::size_t first, RedSet previous) {
    const std::vector<int> attributes = ShownAttributes(plan);
    ColumnTable columns{{"序号", 900}};
    AddNumbered(columns, 1, kRedsInDraw, 500, "红");
    for (const int attribute : attributes) {
        constexpr int kTwipsPerPlace = 130;
        const std::string name(BetAttributes()[static_cast<std::size_t>(attribute)].name);
        columns.push_back({name, 300 + kTwipsPerPlace * static_cast<int>(DisplayWidth(name))});
    }
    ResultGrid grid =
        MakeGrid(columns, static_cast<int>(places.size()) + 1, 1, kFirstRedCol, kRowHeight);
    grid.SetNames(kFirstRedCol, kFirstAttributeCol - 1);
    int row = 1;
    for (const std::uint32_t place : places) {
        const Bet bet(CombinationAt(static_cast<std::int32_t>(place)), previous);
        grid.SetCell(row, 0, std::to_string(first++));
        int col = kFirstRedCol;
        for (const int red : bet.reds) grid.SetCell(row, col++, TwoDigits(red));
        for (const int attribute : attributes) {
            const BetAttribute& told = BetAttributes()[static_cast<std::size_t>(attribute)];
            grid.SetCell(row, col++, told.Text(told.Value(bet)));
        }
        ++row;
    }
    return grid;
}

ResultGrid HistoryTable(const BetPlan& plan, std::span<const Draw> draws, const BetHistory& history,
                        std::int32_t remaining) {
    const ColumnTable columns{
        {"期号", 900}, {"开奖号码", 1900}, {"结果", 800}, {"不过的行", 4200, Align::kLeft}};
    ResultGrid grid = MakeGrid(columns, 1, 1, 1, kRowHeight);
    const std::size_t count = std::min(draws.size(), history.verdicts.size());
    if (count == 0) return grid;
    for (std::size_t i = 0; i < count; ++i) {
        const int row = grid.AddRow();
        const BetVerdict& verdict = history.verdicts[i];
        grid.SetCell(row, 0, draws[i].issue);
        grid.SetCell(row, 1, draws[i].reds);
        grid.SetCell(row, 2, verdict.remains ? "过" : "不过");
        if (verdict.remains) grid.SetBack(row, 2, kDrawnMark);
        grid.SetCell(row, 3, LineList(FailedLines(plan, draws[i].set, verdict)));
    }
    const int row = grid.AddRow();
    grid.footRow = row;
    grid.SetCell(row, 0, "合计");
    grid.SetCell(row, 1, std::to_string(history.passed) + "/" + std::to_string(count) + "期");
    grid.SetCell(row, 2, RateText(history.passed, static_cast<double>(count)) + "%");
    grid.SetCell(row, 3,
                 "剩余占全部组合的" + RateText(remaining, kCombinationCount) + "%（" +
                     std::to_string(remaining) + "/" + std::to_string(kCombinationCount) + "）");
    for (int col = 0; col < grid.cols(); ++col) grid.SetBold(row, col);
    return grid;
}

std::string BetsAsText(std::span<const std::uint32_t> places, const std::vector<int>& blues) {
    return BetLines({}, places, blues.empty() ? std::string() : "+" + BluesText(blues, ','));
}

std::string BetsAsCsv(std::span<const std::uint32_t> places, const std::vector<int>& blues) {
    std::string head(kUtf8Mark);
    head += "红1,红2,红3,红4,红5,红6,蓝球";
    head += kLineEnd;
    return BetLines(std::move(head), places, "," + BluesText(blues, ' '));
}

}  // namespace ssq
