#include "stats/EdgeCodes.h"

#include <vector>

#include "base/text.h"
#include "chance/Chance.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kRowHeight = 300;

struct EdgeDraws {
    std::vector<Draw> prior;  // newest first
    std::vector<Draw> draws;  // of the range, oldest first

    int count() const { return static_cast<int>(draws.size()); }

    // The draw `q` rows above a row, counted from 1; the row behind the last one is the next
    // draw's.
    const Draw& Before(int row, int q) const {
        return row > q ? draws[static_cast<std::size_t>(row - q - 1)]
                       : prior[static_cast<std::size_t>(q - row)];
    }
    const Draw& At(int row) const { return draws[static_cast<std::size_t>(row - 1)]; }
};

std::optional<EdgeDraws> ReadEdgeDraws(Session& session, const PeriodRange& range, int prior) {
    if (!CheckPeriod(session, range)) return std::nullopt;
    auto earlier = ReadDrawsBefore(session, range.start, prior);
    if (!earlier) return std::nullopt;
    const bool enough = static_cast<int>(earlier->size()) == prior;
    auto draws = enough ? ReadDraws(session, range) : std::vector<Draw>{};
    if (!draws) return std::nullopt;
    if (draws->empty()) {
        session.host.ShowMessage("数据不足！");
        return std::nullopt;
    }
    return EdgeDraws{std::move(*earlier), std::move(*draws)};
}

constexpr int kFirstHitsCol = 2;

ResultGrid Summary(const EdgeDraws& draws, const EdgeRequest& request) {
    const bool bySource = request.view == EdgeView::kBySource;
    const int formulas = bySource ? kFormulaDraws : kFormulaOffsets;
    ColumnTable columns{{"期号", 700}, {"开奖号码", 1800}};
    AddNumbered(columns, 1, formulas, 550, bySource ? "" : "边", bySource ? "期" : "");
    AddNumbered(columns, 0, 1, 550, "中");
    const int zeroCol = kFirstHitsCol + formulas;
    const int oneCol = zeroCol + 1;

    const int rates = draws.count() + 1;
    ResultGrid grid = MakeGrid(columns, rates + 1, 1, kFirstHitsCol, kRowHeight);
    ColumnCounts counts(grid.cols());
    for (int row = 1; row < rates; ++row) {
        const Draw& draw = draws.At(row);
        grid.SetCell(row, 0, ShortIssue(draw.issue));
        grid.SetCell(row, 1, draw.reds);
        int zeros = 0;
        int ones = 0;
        for (int formula = 1; formula <= formulas; ++formula) {
            const int q = bySource ? formula : request.q;
            const int b = bySource ? request.b : formula;
            const int hits = ShiftHits(draw.set, draws.Before(row, q).set, b, request.mode);
            const int col = kFirstHitsCol + formula - 1;
            grid.SetCell(row, col, std::to_string(hits));
            if (hits > 0) counts.Add(col);
            if (hits == 0) grid.SetBack(row, col, kStripe);
            if (hits == 1) grid.SetBack(row, col, kSkyMark);
            if (hits == 0) ++zeros;
            if (hits == 1) ++ones;
        }
        for (const auto& [col, value] : {std::pair{zeroCol, zeros}, std::pair{oneCol, ones}}) {
            grid.SetCell(row, col, std::to_string(value));
            grid.SetBack(row, col, kStripe);
            if (value > 0) counts.Add(col);
        }
    }
    grid.footRow = rates;
    grid.SetCell(rates, 1, "概率");
    counts.WriteRates(grid, rates, kFirstHitsCol, oneCol, draws.count());
    return grid;
}

// The detail view, row by row.
class Detail {
  public:
    Detail(const EdgeDraws& draws, const EdgeRequest& request)
        : draws_(draws),
          request_(request),
          width_(request.mode == ShiftMode::kBoth ? 2 * kRedsInDraw : kRedsInDraw),
          grid_(EmptyGrid()),
          counts_(grid_.cols()) {}

    ResultGrid Build() {
        const int next = draws_.count() + 1;
        for (int row = 1; row < next; ++row) WriteDraw(row);
        grid_.footRow = next;
        WriteShifted(next, "下一期");
        WriteRates(next + 1);
        return std::move(grid_);
    }

  private:
    static constexpr int kHitsCol = 2;
    static constexpr int kFirstCol = 3;  // of the shifted numbers

    int leftCol() const { return kFirstCol + width_; }
    int rightCol() const { return leftCol() + 1; }
    int repeatsCol() const { return grid_.cols() - 1; }

    ResultGrid EmptyGrid() const {
        ColumnTable columns{{"期号", 700}, {"开奖号码", 1800}, {"全码", 550}};
        AddTwoDigits(columns, 1, width_, 550);
        if (request_.mode == ShiftMode::kBoth) {
            columns.push_back({"左中", 550});
            columns.push_back({"右中", 550});
        }
        columns.push_back({"重号", 550});
        return MakeGrid(columns, draws_.count() + 3, 1, kFirstCol, kRowHeight);
    }

    const std::string& Text(const Draw& draw) const {
        return request_.drawnOrder ? draw.drawn : draw.reds;
    }
    const std::string& Source(int row) const { return Text(draws_.Before(row, request_.q)); }

    void WriteCount(int row, int col, int value) {
        grid_.SetCell(row, col, std::to_string(value));
        grid_.SetBack(row, col, kStripe);
        if (value > 0) counts_.Add(col);
    }

    // The source's numbers shifted; returns how many of them the target holds.
    int WriteShifted(int row, const std::string& target) {
        grid_.SetCell(row, 1, target);
        grid_.SetBack(row, kHitsCol, kStripe);
        int hits = 0;
        const std::string shifted = ShiftDraw(target, Source(row), request_.b, hits, request_.mode);
        int col = kFirstCol;
        for (const std::string& item : Split(shifted, ",")) grid_.SetCell(row, col++, item);
        return hits;
    }

    // A draw without its drawn order names no numbers, and none of its cells is a hit.
    bool IsHit(int row, int col) const {
        const std::string& number = grid_.cell(row, col);
        return row >= 1 && !number.empty() && Contains(Text(draws_.At(row)), number);
    }

    void WriteDraw(int row) {
        const Draw& draw = draws_.At(row);
        const std::string& target = Text(draw);
        grid_.SetCell(row, 0, ShortIssue(draw.issue));
        WriteCount(row, kHitsCol, WriteShifted(row, target));
        int repeats = 0;
        for (int col = kFirstCol; col < leftCol(); ++col) {
            if (!IsHit(row, col)) continue;
            grid_.SetBack(row, col, kRepeatMark);
            counts_.Add(col);
            if (IsHit(row - 1, col)) ++repeats;
        }
        if (request_.mode == ShiftMode::kBoth) {
            WriteOneSide(row, target, leftCol(), ShiftMode::kMinus);
            WriteOneSide(row, target, rightCol(), ShiftMode::kPlus);
        }
        WriteCount(row, repeatsCol(), repeats);
    }

    void WriteOneSide(int row, const std::string& target, int col, ShiftMode side) {
        int hits = 0;
        ShiftDraw(target, Source(row), request_.b, hits, side);
        WriteCount(row, col, hits);
    }

    // The first row can have no repeat, so it does not count for their rate.
    void WriteRates(int row) {
        grid_.SetCell(row, 1, "概率");
        counts_.WriteRates(grid_, row, kHitsCol, repeatsCol() - 1, draws_.count());
        counts_.WriteRates(grid_, row, repeatsCol(), repeatsCol(), draws_.count() - 1);
        PaintCells(grid_, row, kHitsCol, repeatsCol(), kStripe);
    }

    const EdgeDraws& draws_;
    const EdgeRequest& request_;
    int width_;  // shifted numbers of a row
    ResultGrid grid_;
    ColumnCounts counts_;
};

// The mean chance of a row's edge codes of both sides, the same number counted once, over the rows
// and over the sources and offsets that they show.
double ChanceOfBothSides(const EdgeDraws& draws, const EdgeRequest& request) {
    const bool allSources = request.view == EdgeView::kBySource;
    const bool allOffsets = request.view == EdgeView::kByOffset;
    const int firstQ = allSources ? 1 : request.q;
    const int lastQ = allSources ? kFormulaDraws : request.q;
    const int firstB = allOffsets ? 1 : request.b;
    const int lastB = allOffsets ? kFormulaOffsets : request.b;
    const bool inDrawnOrder = request.view == EdgeView::kDetail && request.drawnOrder;
    double chances = 0;
    int count = 0;
    for (int row = 1; row <= draws.count(); ++row) {
        for (int q = firstQ; q <= lastQ; ++q) {
            RedSet source = draws.Before(row, q).set;
            // A row without its drawn order names no numbers and hits none.
            if (inDrawnOrder && (draws.Before(row, q).drawn.empty() || draws.At(row).drawn.empty()))
                source = {};
            for (int b = firstB; b <= lastB; ++b, ++count) {
                chances += ChanceOfAnyHit((source.Lowered(b) | source.Raised(b)).Count());
            }
        }
    }
    return chances / count;
}

std::string Remark(const EdgeDraws& draws, const EdgeRequest& request) {
    std::string text = "机会线：每个位置 " + InPercent(ChanceOfAnyHit(1)) + "，左或右的全码 " +
                       InPercent(ChanceOfAnyHit(kRedsInDraw));
    if (request.mode == ShiftMode::kBoth) {
        text +=
            "；左右合并按每期不同的号码算，平均 " + InPercent(ChanceOfBothSides(draws, request));
    }
    return text + "。";
}

}  // namespace

std::optional<GridReport> BuildEdgeCodes(Session& session, const EdgeRequest& request) {
    const bool isDetail = request.view == EdgeView::kDetail;
    // The detail asks for one draw more than it can need, and does without a range that lacks it.
    const auto draws =
        ReadEdgeDraws(session, request.range, isDetail ? kFormulaDraws + 1 : kFormulaDraws);
    if (!draws) return std::nullopt;
    return GridReport{isDetail ? Detail(*draws, request).Build() : Summary(*draws, request),
                      {},
                      Remark(*draws, request)};
}

}  // namespace ssq
