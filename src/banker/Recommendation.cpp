#include "banker/Recommendation.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "banker/PositionFormulas.h"
#include "banker/PositionRates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "chance/Chance.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kGroups = 3;
constexpr int kFirstDataRow = 2;
constexpr double kRichPoolYuan = 300'000'000;

struct PrizedDraw {
    std::string issue;
    std::string reds;
    double pool = 0;  // yuan carried into the next draw
};

struct Inputs {
    int dmgs = 0;
    std::array<PositionFormula, kGroups> formulas;
    std::vector<PrizedDraw> range;  // oldest first
    std::vector<DrawBalls> before;  // the range's draws and those before it, newest first
    std::int32_t nextIssue = 0;
};

bool Refuse(Session& session, const std::string& text) {
    session.host.ShowMessage(text);
    return false;
}

// Prize data must reach the newest draw.
bool CheckPrizesComplete(Session& session) {
    Recordset draws;
    Recordset prizes;
    if (!QueryOrTell(session, "SELECT max(kjqh)   FROM cphm", draws) ||
        !QueryOrTell(session, "SELECT max(kjqh)   FROM cpjc", prizes)) {
        return false;
    }
    return draws.Text(0) == prizes.Text(0) ||
           Refuse(session, "奖池信息未更新，不能推荐，请先更新奖池信息！");
}

bool ReadEarlierDraws(Session& session, const std::string& start, Inputs& inputs) {
    constexpr int kAskedFor = 5;  // one more than the window needs
    const auto draws = ReadDrawsBefore(session, start, kAskedFor);
    if (!draws) return false;
    if (draws->size() < kAskedFor) return Refuse(session, "数据不足");
    for (const Draw& draw : *draws) inputs.before.push_back(BallsOf(draw.reds));
    return true;
}

bool ReadFormulas(Session& session, Inputs& inputs) {
    constexpr const char* kTooFew = "数据不足，请重新学习！";
    Recordset rows;
    if (!QueryOrTell(session, "Select top 3 * from trate order by rate desc", rows)) return false;
    if (rows.recordcount() < kGroups) return Refuse(session, kTooFew);
    for (PositionFormula& formula : inputs.formulas) {
        const auto stored = ParseFormula(rows.Text("gs"));
        if (!stored) return Refuse(session, kTooFew);
        formula = *stored;
        rows.MoveNext();
    }
    return true;
}

bool ReadRange(Session& session, const PeriodRange& range, Inputs& inputs) {
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select * from cphmjc where kjqh>=" + range.start + " and kjqh<=" + range.end +
                         " order by kjqh asc",
                     rows)) {
        return false;
    }
    std::vector<DrawBalls> newestFirst;
    for (; !rows.eof(); rows.MoveNext()) {
        inputs.range.push_back({rows.Text("kjqh"), rows.Text("kjhm"), rows.Number("xqjc")});
        newestFirst.push_back(BallsOf(inputs.range.back().reds));
    }
    std::reverse(newestFirst.begin(), newestFirst.end());
    inputs.before.insert(inputs.before.begin(), newestFirst.begin(), newestFirst.end());
    return true;
}

bool CheckFormulaSize(Session& session, const Inputs& inputs) {
    const auto learned = inputs.formulas[0].size();
    if (learned == static_cast<std::size_t>(inputs.dmgs)) return true;
    return Refuse(session, "你更改了学习参数为" + std::to_string(inputs.dmgs) +
                               "胆之后还未重新学习,更改之前是推荐" + std::to_string(learned) +
                               "胆,请立即重新学习！");
}

bool ReadInputs(Session& session, const PeriodRange& range, Inputs& inputs) {
    if (!CheckOrderedPeriod(session, range) || !CheckPrizesComplete(session) ||
        !ReadEarlierDraws(session, range.start, inputs) || !ReadFormulas(session, inputs) ||
        !ReadRange(session, range, inputs) || !CheckFormulaSize(session, inputs)) {
        return false;
    }
    inputs.nextIssue = NextIssue(session, range.end);
    return inputs.nextIssue != 0;
}

int FirstColumn(const Inputs& inputs, int group) {
    return 2 + group * (inputs.dmgs + 1);
}

ResultGrid EmptyGrid(const Inputs& inputs) {
    constexpr int kNarrow = 550;
    ColumnTable columns{{"期号", 700}, {"开奖号码", 1880}};
    for (int group = 0; group < kGroups; ++group) {
        AddNumbered(columns, 1, inputs.dmgs, kNarrow);
        columns.push_back({"命中", kNarrow});
    }
    constexpr int kRowsAround = 4;  // two of headings, the next issue, the rates
    ResultGrid grid =
        MakeGrid(columns, static_cast<int>(inputs.range.size()) + kRowsAround, 2, 2, 300);
    grid.SetMergeRow(0);
    grid.SetMergeAllCols();
    constexpr std::array<const char*, kGroups> kTitles = {"第一组胆码", "第二组胆码", "第三组胆码"};
    for (int col = 0; col < grid.cols(); ++col) {
        grid.SetCell(0, col,
                     col < 2 ? "开奖号码区"
                             : kTitles[static_cast<std::size_t>((col - 2) / (inputs.dmgs + 1))]);
    }
    return grid;
}

// Writes the bankers of one group for the draw behind those `before`; returns how many are
// `drawn`, marking those cells. Equal balls at two positions count twice here.
int FillGroup(const Inputs& inputs, ResultGrid& grid, int row, int group,
              std::span<const DrawBalls> before, RedSet drawn) {
    int col = FirstColumn(inputs, group);
    const int hitCol = col + inputs.dmgs;
    PaintCells(grid, row, col, hitCol - 1, kStripe);
    int hits = 0;
    for (const int ball : BallsAt(inputs.formulas[static_cast<std::size_t>(group)], before)) {
        if (col == hitCol) break;  // a stored formula can be longer than the first one
        grid.SetCell(row, col, TwoDigits(ball));
        if (drawn.Has(ball)) {
            grid.SetBack(row, col, kDrawnMark);
            ++hits;
        }
        ++col;
    }
    return hits;
}

void FillDrawRow(const Inputs& inputs, ResultGrid& grid, int row, ColumnCounts& hitRows) {
    const auto index = static_cast<std::size_t>(row - kFirstDataRow);
    const PrizedDraw& draw = inputs.range[index];
    grid.SetCell(row, 0, ShortIssue(draw.issue));
    grid.SetCell(row, 1, draw.reds);
    if (draw.pool > kRichPoolYuan) grid.SetFore(row, 1, kBlueInk);
    const auto before = std::span(inputs.before).subspan(inputs.range.size() - index);
    for (int group = 0; group < kGroups; ++group) {
        const int hits = FillGroup(inputs, grid, row, group, before, RedSet::FromList(draw.reds));
        const int hitCol = FirstColumn(inputs, group) + inputs.dmgs;
        grid.SetCell(row, hitCol, std::to_string(hits));
        if (hits > 0) hitRows.Add(hitCol);
    }
}

void FillNextIssueRow(const Inputs& inputs, ResultGrid& grid, int row) {
    grid.SetCell(row, 1, std::to_string(inputs.nextIssue) + "期推荐胆码");
    for (int group = 0; group < kGroups; ++group) {
        FillGroup(inputs, grid, row, group, inputs.before, {});
    }
}

void FillRateRow(const Inputs& inputs, ResultGrid& grid, int row, const ColumnCounts& hitRows) {
    grid.SetCell(row, 1, "每组命中概率");
    for (int group = 0; group < kGroups; ++group) {
        const int hitCol = FirstColumn(inputs, group) + inputs.dmgs;
        hitRows.WriteRates(grid, row, hitCol, hitCol, static_cast<int>(inputs.range.size()));
    }
}

// The mean chance of a group over the rows shown: balls that stand twice can be hit once.
double MeanChance(const Inputs& inputs, const PositionFormula& formula) {
    double chances = 0;
    for (std::size_t newer = 1; newer <= inputs.range.size(); ++newer) {
        std::vector<int> balls = BallsAt(formula, std::span(inputs.before).subspan(newer));
        balls.resize(std::min(balls.size(), static_cast<std::size_t>(inputs.dmgs)));
        RedSet different;
        for (const int ball : balls) different.Add(ball);
        chances += ChanceOfAnyHit(different.Count());
    }
    return chances / static_cast<double>(inputs.range.size());
}

std::string Remark(const Inputs& inputs) {
    if (inputs.range.empty()) return {};
    std::vector<std::string> groups;
    for (const PositionFormula& formula : inputs.formulas) {
        groups.push_back(InPercent(MeanChance(inputs, formula)));
    }
    return "机会线：随便选同样多的号码，三组平均命中 " + Join(groups, "、") +
           "。刚学完时，表里正是学习用的期数，命中率自然偏高。";
}

}  // namespace

std::optional<GridReport> BuildBankerRecommendation(Session& session, const PeriodRange& range,
                                                    int dmgs) {
    Inputs inputs;
    inputs.dmgs = dmgs;
    if (!ReadInputs(session, range, inputs)) return std::nullopt;

    ResultGrid grid = EmptyGrid(inputs);
    ColumnCounts hitRows(grid.cols());
    const int nextIssueRow = kFirstDataRow + static_cast<int>(inputs.range.size());
    for (int row = kFirstDataRow; row < nextIssueRow; ++row) {
        FillDrawRow(inputs, grid, row, hitRows);
    }
    grid.footRow = nextIssueRow;
    FillNextIssueRow(inputs, grid, nextIssueRow);
    FillRateRow(inputs, grid, nextIssueRow + 1, hitRows);
    return GridReport{
        std::move(grid),
        "分析结果  共" + std::to_string(inputs.range.size()) + "期数据,概率降低请重新学习",
        Remark(inputs)};
}

}  // namespace ssq
