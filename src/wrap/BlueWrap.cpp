#include "wrap/BlueWrap.h"

#include <cstdlib>
#include <set>

#include "base/numbers.h"
#include "base/text.h"
#include "chance/Chance.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kReach = 3;  // neighbours on each side
constexpr int kFirstItemCol = 2;
constexpr int kItems = 9;  // items shown
constexpr int kVerdictCol = kFirstItemCol + kItems;

std::string Neighbourhood(int a, int b, int c) {
    std::vector<std::string> items{TwoDigits(a)};
    if (b != a) items.push_back(TwoDigits(b));
    if (b != a && c != a) items.push_back(TwoDigits(c));
    for (int step = 1; step <= kReach; ++step) {
        if (a + step <= kBlues) items.push_back(TwoDigits(a + step));
        if (a - step >= 1) items.push_back(TwoDigits(a - step));
    }
    return Join(items, ",");
}

std::string Complement(const std::string& list) {
    std::vector<std::string> items;
    for (int blue = 1; blue <= kBlues; ++blue) {
        if (!Contains(list, TwoDigits(blue))) items.push_back(TwoDigits(blue));
    }
    return Join(items, ",");
}

ResultGrid EmptyGrid(int draws) {
    ColumnTable columns{{"期号", 850}, {"蓝球", 600}};
    AddTwoDigits(columns, 1, kItems, 600);
    columns.push_back({"判定", 650});
    return MakeGrid(columns, draws + 2, 1, 2, 300);
}

// The chance that the blue is among the items shown, of which one may stand twice.
double ChanceOf(const BlueWrapResult& wrap) {
    const std::vector<std::string> items = ShownItems(wrap);
    return static_cast<double>(std::set(items.begin(), items.end()).size()) / kBlues;
}

// Writes the wrap; answers whether `blue` is among them.
bool WriteWrap(ResultGrid& grid, int row, const BlueWrapResult& wrap, const std::string& blue) {
    bool isHit = false;
    int col = kFirstItemCol;
    for (std::string& item : ShownItems(wrap)) {
        if (item == blue) {
            grid.SetBack(row, col, kRepeatMark);
            isHit = true;
        }
        grid.SetCell(row, col++, std::move(item));
    }
    return isHit;
}

void WriteVerdict(ResultGrid& grid, int row, bool isHit) {
    grid.SetCell(row, kVerdictCol, isHit ? "√" : "×");
    if (!isHit) return;
    grid.SetFore(row, kVerdictCol, kDrawnMark);
    grid.SetBold(row, kVerdictCol);
    grid.SetFontSize(row, kVerdictCol, 16);
}

}  // namespace

BlueWrapResult BlueWrap(int a, int b, int c, int d) {
    const bool isNear = std::abs(a - b) <= kReach || a == c || a == d;
    const std::string list = Neighbourhood(a, b, c);
    return {isNear ? list : Complement(list), isNear};
}

std::vector<std::string> ShownItems(const BlueWrapResult& wrap) {
    std::vector<std::string> items = Split(wrap.text, ",");
    if (items.size() > kItems) items.resize(kItems);
    return items;
}

std::optional<GridReport> BuildBlueWrap(Session& session, const PeriodRange& range) {
    const auto refuse = [&session] {
        session.host.ShowMessage("数据不足！");
        return std::nullopt;
    };
    if (!CheckPeriod(session, range)) return std::nullopt;
    if (WholePart(range.end) - WholePart(range.start) < kDrawsInBlueWrap - 1) return refuse();
    const auto earlier = ReadDrawsBefore(session, range.start, kDrawsInBlueWrap);
    if (!earlier) return std::nullopt;
    if (earlier->size() < kDrawsInBlueWrap) return refuse();
    const auto draws = ReadDraws(session, range);
    if (!draws) return std::nullopt;
    // The issues of a range over a new year differ by more than its draws.
    if (draws->size() < kDrawsInBlueWrap) return refuse();
    const std::int32_t next = NextIssue(session, range.end);
    if (next == 0) return std::nullopt;

    std::vector<int> blues;  // oldest first, those before the range in front
    for (auto draw = earlier->rbegin(); draw != earlier->rend(); ++draw) {
        blues.push_back(draw->blue);
    }
    const auto wrapBehind = [&blues] {
        const auto newest = blues.rbegin();
        return BlueWrap(newest[0], newest[1], newest[2], newest[3]);
    };
    const int count = static_cast<int>(draws->size());
    ResultGrid grid = EmptyGrid(count);
    int row = 1;
    double chances = 0;
    int hits = 0;
    for (const Draw& draw : *draws) {
        const std::string blue = TwoDigits(draw.blue);
        grid.SetCell(row, 0, draw.issue);
        grid.SetCell(row, 1, blue);
        const BlueWrapResult wrap = wrapBehind();
        const bool isHit = WriteWrap(grid, row, wrap, blue);
        WriteVerdict(grid, row, isHit);
        chances += ChanceOf(wrap);
        if (isHit) ++hits;
        blues.push_back(draw.blue);
        ++row;
    }
    grid.footRow = row;
    grid.SetCell(row, 0, std::to_string(next));
    grid.SetCell(row, 1, "围蓝");
    WriteWrap(grid, row, wrapBehind(), {});
    grid.SetCell(row, kVerdictCol, "未开奖");
    return GridReport{std::move(grid),
                      {},
                      "机会线：随便选同样多的蓝球，命中 " + InPercent(chances / count) + "；本表 " +
                          InPercent(static_cast<double>(hits) / count) + "。"};
}

}  // namespace ssq
