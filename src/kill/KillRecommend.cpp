#include "kill/KillRecommend.h"

#include <array>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "chance/Chance.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "formulas/BMHZ.h"
#include "kill/FormulaSet.h"
#include "kill/KillSettings.h"
#include "ui/Host.h"
#include "ui/palette.h"

namespace ssq {

namespace {

// The columns: two for the draw, six kill numbers to a formula, two for the verdict.
constexpr int kFirstKillCol = 2;
constexpr int kKillsPerFormula = kRedsInDraw;
constexpr int kColsAround = 4;

struct Inputs {
    FormulaSet formulas;
    KillSettings settings;
    std::vector<Draw> draws;        // of the period, oldest first
    std::vector<DrawBalls> before;  // those and the ten before them, newest first
    std::int32_t nextIssue = 0;

    int kills() const { return kKillsPerFormula * static_cast<int>(formulas.size()); }
    int drawCount() const { return static_cast<int>(draws.size()); }
};

bool Refuse(Session& session, const std::string& text) {
    session.host.ShowMessage(text);
    return false;
}

bool ReadFormulas(Session& session, Inputs& inputs) {
    Recordset rows;
    if (!QueryOrTell(session, "Select top 1 dsgs from tds where dstype=1", rows)) return false;
    if (rows.eof()) return Refuse(session, "数据不足！");
    auto formulas = ParseFormulaSet(rows.Text("dsgs"));
    if (!formulas) return Refuse(session, "条件错误！");
    inputs.formulas = std::move(*formulas);
    return true;
}

bool ReadPeriod(Session& session, const PeriodRange& range, Inputs& inputs) {
    auto draws = ReadDraws(session, range);
    if (!draws) return false;
    if (draws->empty()) return Refuse(session, "无数据！");
    inputs.draws = std::move(*draws);
    return true;
}

bool ReadEarlierDraws(Session& session, Inputs& inputs) {
    const auto earlier = ReadDrawsBefore(session, inputs.draws.front().issue, kFormulaDraws);
    if (!earlier) return false;
    for (auto draw = inputs.draws.rbegin(); draw != inputs.draws.rend(); ++draw) {
        inputs.before.push_back(BallsOf(draw->reds));
    }
    for (const Draw& draw : *earlier) inputs.before.push_back(BallsOf(draw.reds));
    return true;
}

bool ReadSettings(Session& session, Inputs& inputs) {
    const auto settings = ReadKillSettingsOrTell(session);
    if (!settings) return false;
    inputs.settings = *settings;
    // The stored set wins over the settings.
    inputs.settings.dmgs = static_cast<int>(inputs.formulas.size()) - 1;
    return true;
}

bool ReadInputs(Session& session, PeriodRange range, Inputs& inputs) {
    constexpr const char* kBeforeAll = "0000000";
    if (range.start.empty()) range.start = kBeforeAll;
    if (!CheckPeriod(session, range) || !ReadFormulas(session, inputs) ||
        !ReadPeriod(session, range, inputs) || !ReadSettings(session, inputs) ||
        !ReadEarlierDraws(session, inputs)) {
        return false;
    }
    inputs.nextIssue = NextIssue(session, range.end);
    return inputs.nextIssue != 0;
}

std::string Caption(const Inputs& inputs) {
    return "杀码统计结果,共" + std::to_string(inputs.drawCount()) + "期数据(当前的学习模式是：" +
           std::to_string(inputs.settings.xxqs) + "期内杀" + std::to_string(inputs.kills()) +
           "码,最多允许错" + std::to_string(inputs.settings.rc) + "码)";
}

ResultGrid EmptyGrid(const Inputs& inputs) {
    ColumnTable columns{{"开奖期号", 800}, {"开奖号码", 1800}};
    AddTwoDigits(columns, 1, inputs.kills(), 510);
    columns.push_back({"命中", 550});
    columns.push_back({"判定", 550});
    constexpr int kRowsAround = 3;  // headings, forecast, rates
    return MakeGrid(columns, inputs.drawCount() + kRowsAround, 1, 2, 300);
}

// Every second formula's columns are banded, so that the blocks stand apart.
void BandRow(const Inputs& inputs, ResultGrid& grid, int row) {
    const auto band = [&](int block) {
        const int first = kFirstKillCol + block * kKillsPerFormula;
        PaintCells(grid, row, first, first + kKillsPerFormula - 1, kStripe);
    };
    const int dmgs = inputs.settings.dmgs;
    if (dmgs >= 1 && dmgs <= 3) band(1);
    if (dmgs == 3) band(3);
}

// The kill numbers for the draw behind all but the newest `newer` draws; none after showing
// "数据不足！" when fewer than ten are left.
std::vector<int> KillPredictRow(Session& session, const Inputs& inputs, int newer) {
    const auto before = std::span(inputs.before).subspan(static_cast<std::size_t>(newer));
    if (before.size() < kFormulaDraws) {
        session.host.ShowMessage("数据不足！");
        return {};
    }
    return KillNumbers(inputs.formulas, before);
}

// Writes the wrong kills and the verdict from column `col` on; true for a draw judged right.
bool JudgeDraw(const Inputs& inputs, ResultGrid& grid, int row, int col, RedSet wrong) {
    grid.SetCell(row, col, std::to_string(wrong.Count()));
    const int verdictCol = col + 1;
    if (wrong.Count() > inputs.settings.rc) {
        grid.SetCell(row, verdictCol, "×");
        return false;
    }
    grid.SetCell(row, verdictCol, "√");
    grid.SetFore(row, verdictCol, kDrawnMark);
    grid.SetBold(row, verdictCol);
    grid.SetFontSize(row, verdictCol, 16);
    return true;
}

// True for a draw judged right. A draw without kill numbers is judged in the first kill columns.
bool FillDrawRow(Session& session, const Inputs& inputs, ResultGrid& grid, int row,
                 ColumnCounts& rightByCol) {
    const Draw& draw = inputs.draws[static_cast<std::size_t>(row - 1)];
    grid.SetCell(row, 0, draw.issue);
    grid.SetCell(row, 1, draw.reds);
    BandRow(inputs, grid, row);
    RedSet wrong;
    std::vector<int> kills = KillPredictRow(session, inputs, inputs.drawCount() - row + 1);
    int col = kFirstKillCol;
    for (const int kill : kills) {
        grid.SetCell(row, col, TwoDigits(kill));
        if (draw.Has(kill)) {
            grid.SetBack(row, col, kDrawnMark);
            wrong.Add(kill);
        } else {
            rightByCol.Add(col);
        }
        ++col;
    }
    const int judged = col;
    for (; col < kFirstKillCol + inputs.kills(); ++col) rightByCol.Add(col);
    return JudgeDraw(inputs, grid, row, judged, wrong);
}

void FillForecastRow(Session& session, const Inputs& inputs, ResultGrid& grid, int row) {
    grid.SetRowHeight(row, 400);
    grid.SetCell(row, 1, std::to_string(inputs.nextIssue) + "期杀号推荐");
    BandRow(inputs, grid, row);
    int col = kFirstKillCol;
    for (const int kill : KillPredictRow(session, inputs, 0)) {
        grid.SetCell(row, col++, TwoDigits(kill));
    }
}

void FillProbabilityRow(const Inputs& inputs, ResultGrid& grid, int row,
                        const ColumnCounts& rightByCol, int okCount) {
    grid.SetCell(row, 1, "杀对的概率");
    const int lastKillCol = kFirstKillCol + inputs.kills() - 1;
    rightByCol.WriteRates(grid, row, kFirstKillCol, lastKillCol, inputs.drawCount());
    for (int col = kFirstKillCol; col <= lastKillCol; ++col) {
        grid.SetFont(row, col, "Arial Narrow", 8);
    }
    grid.SetCell(row, lastKillCol + 2, RateText(okCount, inputs.drawCount()));
}

// Rows without kill numbers count as right in the grid's rates, so they do here.
std::string Remark(const Inputs& inputs) {
    double right = 0;
    double kept = 0;
    for (int newer = 1; newer <= inputs.drawCount(); ++newer) {
        const auto before = std::span(inputs.before).subspan(static_cast<std::size_t>(newer));
        const bool isShort = before.size() < kFormulaDraws;
        RedSet kills;
        if (!isShort) {
            for (const int kill : KillNumbers(inputs.formulas, before)) kills.Add(kill);
        }
        right += ChanceOfHits(kills.Count(), 0, inputs.settings.rc);
        kept += isShort ? 1 : ChanceOfHits(1, 0);
    }
    return "机会线：随便杀同样多的号码，判定√ " + InPercent(right / inputs.drawCount()) +
           "，单个位置杀对 " + InPercent(kept / inputs.drawCount()) + "。";
}

}  // namespace

std::optional<KillReport> KillRecommend(Session& session, const PeriodRange& range) {
    Inputs inputs;
    if (!ReadInputs(session, range, inputs)) return std::nullopt;
    ResultGrid grid = EmptyGrid(inputs);
    ColumnCounts rightByCol(grid.cols());
    int okCount = 0;
    int row = 1;
    for (; row <= inputs.drawCount(); ++row) {
        if (FillDrawRow(session, inputs, grid, row, rightByCol)) ++okCount;
    }
    grid.footRow = row;
    FillForecastRow(session, inputs, grid, row);
    FillProbabilityRow(inputs, grid, row + 1, rightByCol, okCount);
    return KillReport{{std::move(grid), Caption(inputs), Remark(inputs)}, inputs.settings};
}

std::string KillConditions(const ResultGrid& grid) {
    constexpr const char* kLineEnd = "/0~1\r\n";
    constexpr int kFormulasWithPairs = 4;
    constexpr std::array<std::pair<int, int>, 7> kPairs{
        {{2, 8}, {7, 13}, {8, 14}, {13, 19}, {14, 20}, {19, 25}, {2, 25}}};

    const int row = grid.rowSel();
    if (row < 0) return {};
    const int formulas = (grid.cols() - kColsAround) / kKillsPerFormula;
    std::string text;
    for (int i = 1; i <= formulas * kKillsPerFormula; ++i) {
        text += grid.cell(row, kFirstKillCol + i - 1);
        text += i % kKillsPerFormula == 0 ? kLineEnd : ",";
    }
    if (formulas == kFormulasWithPairs) {
        for (const auto& [a, b] : kPairs) {
            text += grid.cell(row, a) + "," + grid.cell(row, b) + kLineEnd;
        }
    }
    return text;
}

}  // namespace ssq
