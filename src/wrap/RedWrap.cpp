#include "wrap/RedWrap.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "chance/Chance.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/Run.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kShortestRun = 5;
// A diagonal stays inside the table of pairs: the last one forward starts at 510, the last one
// backward at 17.
constexpr int kLastForward = kRedPairs - 1 - 17;
constexpr int kFirstBackward = 17;

constexpr int kFirstNumberCol = 2;
constexpr int kHitsCol = kFirstNumberCol + kWrapSize;
constexpr int kFirstStripeCol = 8;
constexpr int kLastStripeCol = 13;
constexpr int kForecastHeight = 360;  // twips

struct Pair {
    int low;
    int high;
};

constexpr std::array<Pair, kRedPairs> AllPairs() {
    std::array<Pair, kRedPairs> pairs{};
    std::size_t index = 0;
    for (int low = 1; low < kReds; ++low) {
        for (int high = low + 1; high <= kReds; ++high) pairs[index++] = {low, high};
    }
    return pairs;
}

constexpr std::array<Pair, kRedPairs> kPairs = AllPairs();

PairSet Range(int first, int last) {
    PairSet set;
    for (int i = first; i <= last; ++i) set.set(static_cast<std::size_t>(i));
    return set;
}

// The pairs that head a diagonal, by its length and from the last one down. `step` moves a set of
// pairs one diagonal step towards the place of its head.
template <typename Step>
std::array<std::vector<std::size_t>, kWrapDepth + 1> Diagonals(
    const std::array<PairSet, kWrapDepth>& missed, const PairSet& heads, Step step) {
    std::array<PairSet, kWrapDepth + 1> reached;  // heads of at least that length
    reached[0] = heads;
    for (std::size_t length = 1; length <= kWrapDepth; ++length) {
        reached[length] = reached[length - 1] & step(missed[length - 1], length);
    }
    std::array<std::vector<std::size_t>, kWrapDepth + 1> byLength;
    for (std::size_t pair = kRedPairs; pair-- > 0;) {
        if (!reached[kShortestRun][pair]) continue;
        std::size_t length = kShortestRun;
        while (length < kWrapDepth && reached[length + 1][pair]) ++length;
        byLength[length].push_back(pair);
    }
    return byLength;
}

class WrapList {
  public:
    void Add(std::size_t pair) {
        for (const int number : {kPairs[pair].low, kPairs[pair].high}) {
            if (known_.Has(number)) continue;
            known_.Add(number);
            numbers_.push_back(number);
        }
    }
    std::vector<int> Take() { return std::move(numbers_); }

  private:
    RedSet known_;
    std::vector<int> numbers_;
};

// The draws that a row looks at, as it moves down the range.
class RecentDraws {
  public:
    // `earlier` are the draws before the range, newest first.
    explicit RecentDraws(const std::vector<Draw>& earlier) {
        for (std::size_t k = 0; k < kWrapDepth; ++k) seen_[k] = MissedPairs(earlier[k].set);
    }

    // Row `row` counts from 1; `rows` holds what the rows before it missed. Rows 2 to 15 put the
    // draws of the range oldest first before the earlier ones, row 16 still sees what row 15 saw.
    void MoveTo(std::size_t row, const std::vector<PairSet>& rows) {
        if (row > kWrapDepth) {
            for (std::size_t k = 1; k <= kWrapDepth; ++k) seen_[k - 1] = rows[row - k - 1];
        } else if (row > 1 && row < kWrapDepth) {
            for (std::size_t k = kWrapDepth; k >= row; --k) seen_[k - 1] = seen_[k - 2];
            for (std::size_t j = 1; j < row; ++j) seen_[j - 1] = rows[j - 1];
        }
    }

    // Behind the last of the range: its newest draws, newest first. With only fifteen of them the
    // last place holds the heading of their column, which names no number and misses every pair.
    void MoveBehind(const std::vector<PairSet>& rows) {
        for (std::size_t k = 1; k <= kWrapDepth; ++k) {
            seen_[k - 1] = k <= rows.size() ? rows[rows.size() - k] : MissedPairs({});
        }
    }

    const std::array<PairSet, kWrapDepth>& seen() const { return seen_; }

  private:
    std::array<PairSet, kWrapDepth> seen_;
};

ResultGrid EmptyGrid(int draws) {
    ColumnTable columns{{"开奖期号", 800}, {"开奖号码", 1800}};
    AddTwoDigits(columns, 1, kWrapSize, 510);
    columns.push_back({"命中", 550});
    return MakeGrid(columns, draws + 3, 1, 2, 300);
}

// Writes the wrap into its row and returns how many of its numbers the draw holds.
int WriteWrap(ResultGrid& grid, int row, const std::vector<int>& wrap, RedSet draw) {
    PaintCells(grid, row, kFirstStripeCol, kLastStripeCol, kStripe);
    int hits = 0;
    int col = kFirstNumberCol;
    for (const int number : wrap) {
        if (col == kHitsCol) break;
        grid.SetCell(row, col, TwoDigits(number));
        if (draw.Has(number)) {
            grid.SetBack(row, col, kDrawnMark);
            ++hits;
        }
        ++col;
    }
    return hits;
}

}  // namespace

PairSet MissedPairs(RedSet draw) {
    PairSet missed;
    for (std::size_t i = 0; i < kPairs.size(); ++i) {
        missed[i] = !draw.Has(kPairs[i].low) && !draw.Has(kPairs[i].high);
    }
    return missed;
}

std::vector<int> RedWrap(const std::array<PairSet, kWrapDepth>& missed) {
    static const PairSet kForwardHeads = Range(0, kLastForward);
    static const PairSet kBackwardHeads = Range(kFirstBackward, kRedPairs - 1);
    const auto forward = Diagonals(
        missed, kForwardHeads, [](const PairSet& set, std::size_t step) { return set >> step; });
    const auto backward = Diagonals(
        missed, kBackwardHeads, [](const PairSet& set, std::size_t step) { return set << step; });
    WrapList list;
    for (std::size_t length = kWrapDepth; length >= kShortestRun; --length) {
        // Forward only the last diagonal of a length counts, backward all of them.
        if (!forward[length].empty()) list.Add(forward[length].front());
        for (const std::size_t pair : backward[length]) list.Add(pair);
    }
    return list.Take();
}

std::vector<int> RedWrapAfter(std::span<const RedSet> before) {
    std::array<PairSet, kWrapDepth> missed;
    for (std::size_t k = 0; k < kWrapDepth; ++k) missed[k] = MissedPairs(before[k]);
    std::vector<int> wrap = RedWrap(missed);
    if (wrap.size() > kWrapSize) wrap.resize(kWrapSize);
    return wrap;
}

std::optional<GridReport> BuildRedWrap(Session& session, const PeriodRange& range, Run& run) {
    const auto refuse = [&session](const char* text) {
        session.host.ShowMessage(text);
        return std::nullopt;
    };
    if (!CheckPeriod(session, range)) return std::nullopt;
    const auto earlier = ReadDrawsBefore(session, range.start, kWrapDepth);
    if (!earlier) return std::nullopt;
    if (earlier->size() < kWrapDepth) {
        return refuse("数据不足，请将起始期号调整到2003016期以后！");
    }
    const auto draws = ReadDraws(session, range);
    if (!draws) return std::nullopt;
    if (draws->empty()) return refuse("数据不足！");
    // The wrap of the next issue looks at the last sixteen rows, the heading among them.
    if (draws->size() < kWrapDepth - 1) return refuse("数据不足，请至少选择15期！");

    const int count = static_cast<int>(draws->size());
    ResultGrid grid = EmptyGrid(count);
    RecentDraws recent(*earlier);
    std::vector<PairSet> missed;
    double expected = 0;
    int wrapped = 0;
    for (int row = 1; row <= count; ++row) {
        if (!run.Step(row, count)) return std::nullopt;
        const Draw& draw = (*draws)[static_cast<std::size_t>(row - 1)];
        grid.SetCell(row, 0, draw.issue);
        grid.SetCell(row, 1, draw.reds);
        recent.MoveTo(static_cast<std::size_t>(row), missed);
        const std::vector<int> wrap = RedWrap(recent.seen());
        const int hits = WriteWrap(grid, row, wrap, draw.set);
        wrapped += hits;
        expected += OddsOfReds(std::min(static_cast<int>(wrap.size()), kWrapSize)).mean;
        grid.SetCell(row, kHitsCol, std::to_string(hits));
        grid.SetBack(row, kHitsCol, kStripe);
        missed.push_back(MissedPairs(draw.set));
    }
    grid.footRow = count + 1;
    grid.SetRowHeight(count + 1, kForecastHeight);
    grid.SetCell(count + 1, 1, "下期预测号码");
    recent.MoveBehind(missed);
    WriteWrap(grid, count + 1, RedWrap(recent.seen()), {});
    return GridReport{std::move(grid),
                      {},
                      "机会线：随便围同样多的号码，平均围住 " +
                          NumberText(Round(expected / count)) + " 个；本表平均 " +
                          NumberText(Round(static_cast<double>(wrapped) / count)) + " 个。"};
}

}  // namespace ssq
