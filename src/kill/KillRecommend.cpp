#include "kill/KillRecommend.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "kill/KillSettings.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr Rgb kBand{0xEC, 0xF1, 0xF1};
constexpr Rgb kMark{0xD7, 0x85, 0x6E};
constexpr const char* kNotDrawnYet = "00,00,00,00,00,00";
constexpr int kFirstKillCol = 2;
constexpr int kKillsPerFormula = 6;

struct Inputs {
    std::vector<int> formulas;  // FormulaIndex values
    KillSettings settings;
    std::string formulaText;
    EarlierDraws earlier;
    Recordset draws;  // of the period, oldest first
    std::string endIssue;
};

struct Counters {
    std::vector<int> wrongByCol;  // draws on which the kill column was wrong
    int okCount = 0;
};

bool Refuse(Session& session, const std::string& text) {
    session.host.ShowMessage(text);
    return false;
}

int KillCount(const Inputs& inputs) {
    return kKillsPerFormula * static_cast<int>(inputs.formulas.size());
}

bool ReadFormulas(Session& session, Inputs& inputs) {
    Recordset rows;
    if (!QueryOrTell(session, "Select top 1 dsgs from tds where dstype=1", rows)) return false;
    if (rows.eof()) return Refuse(session, "数据不足！");
    for (const std::string& item : Split(rows.Text("dsgs"), ",")) {
        const std::int64_t index = WholePart(item);
        if (index < 0 || index >= kFormulaCount) return Refuse(session, "条件错误！");
        inputs.formulas.push_back(static_cast<int>(index));
        const ShiftFormula formula = FormulaAt(inputs.formulas.back());
        if (!inputs.formulaText.empty()) inputs.formulaText += '|';
        inputs.formulaText += std::to_string(formula.q) + "," + std::to_string(formula.b);
    }
    return true;
}

bool ReadInputs(Session& session, const PeriodRange& range, Inputs& inputs) {
    if (!CheckPeriod(session, range) || !ReadFormulas(session, inputs)) return false;
    if (!QueryOrTell(session,
                     "Select kjqh,kjhm from cphm where kjqh>=" + range.start +
                         "  and kjqh<=" + range.end + " order by kjqh asc",
                     inputs.draws)) {
        return false;
    }
    if (inputs.draws.eof()) return Refuse(session, "无数据！");
    const std::optional<KillSettings> settings = ReadKillSettingsOrTell(session);
    if (!settings) return false;
    inputs.settings = *settings;
    // The stored set wins over the settings.
    inputs.settings.dmgs = static_cast<int>(inputs.formulas.size()) - 1;
    inputs.endIssue = range.end;
    return inputs.earlier.ReadBefore(session, inputs.draws.Text("kjqh"));
}

std::string Caption(const Inputs& inputs) {
    return "杀码统计结果,共" + std::to_string(inputs.draws.recordcount()) +
           "期数据(当前的学习模式是：" + std::to_string(inputs.settings.xxqs) + "期内杀" +
           std::to_string(KillCount(inputs)) + "码,最多允许错" +
           std::to_string(inputs.settings.rc) + "码)";
}

ResultGrid EmptyGrid(const Inputs& inputs) {
    const int kills = KillCount(inputs);
    ResultGrid grid(inputs.draws.recordcount() + 3, kills + 4, 1, 2);
    grid.SetAllRowHeights(300);
    grid.SetAllAlignments(Align::kCentre);
    grid.SetColWidth(0, 800);
    grid.SetColWidth(1, 1800);
    grid.SetColWidths(kFirstKillCol, kills + 1, 510);
    grid.SetColWidths(kills + 2, kills + 3, 550);
    grid.SetCell(0, 0, "开奖期号");
    grid.SetCell(0, 1, "开奖号码");
    for (int i = 0; i < kills; ++i) grid.SetCell(0, i + kFirstKillCol, TwoDigits(i + 1));
    grid.SetCell(0, kills + 2, "命中");
    grid.SetCell(0, kills + 3, "判定");
    return grid;
}

// Every second formula's six columns are banded, so that the blocks stand apart.
void BandRow(ResultGrid& grid, int row, int dmgs) {
    const auto band = [&](int first) {
        for (int col = first; col < first + kKillsPerFormula; ++col) grid.SetBack(row, col, kBand);
    };
    if (dmgs >= 1 && dmgs <= 3) band(8);
    if (dmgs == 3) band(20);
}

void FillDrawRow(Session& session, const Inputs& inputs, ResultGrid& grid, int row,
                 Counters& counters) {
    const std::string kjhm = inputs.draws.Text("kjhm");
    grid.SetCell(row, 0, inputs.draws.Text("kjqh"));
    grid.SetCell(row, 1, kjhm);
    BandRow(grid, row, inputs.settings.dmgs);
    const std::vector<std::string> kills =
        Split(KillPredictRow(session, inputs.formulaText, inputs.earlier, kjhm), ",");
    std::vector<std::string> wrong;
    int col = kFirstKillCol;
    for (const std::string& kill : kills) {
        grid.SetCell(row, col, kill);
        if (Contains(kjhm, kill)) {
            grid.SetBack(row, col, kMark);
            ++counters.wrongByCol[static_cast<std::size_t>(col - kFirstKillCol)];
            if (std::find(wrong.begin(), wrong.end(), kill) == wrong.end()) wrong.push_back(kill);
        }
        ++col;
    }
    // Behind the last number; a draw without kill numbers is judged in the first kill columns.
    const int wrongCount = static_cast<int>(wrong.size());
    grid.SetCell(row, col, std::to_string(wrongCount));
    const int verdictCol = col + 1;
    if (wrongCount > inputs.settings.rc) {
        grid.SetCell(row, verdictCol, "×");
        return;
    }
    ++counters.okCount;
    grid.SetCell(row, verdictCol, "√");
    grid.SetFore(row, verdictCol, kMark);
    grid.SetBold(row, verdictCol);
    grid.SetFontSize(row, verdictCol, 16);
}

void FillForecastRow(Session& session, const Inputs& inputs, ResultGrid& grid, int row) {
    grid.SetRowHeight(row, 400);
    grid.SetCell(row, 1, std::to_string(NextIssue(session, inputs.endIssue)) + "期杀号推荐");
    BandRow(grid, row, inputs.settings.dmgs);
    int col = kFirstKillCol;
    for (std::string& kill :
         Split(KillPredictRow(session, inputs.formulaText, inputs.earlier, kNotDrawnYet), ",")) {
        grid.SetCell(row, col++, std::move(kill));
    }
}

void FillProbabilityRow(const Inputs& inputs, ResultGrid& grid, int row, const Counters& counters) {
    const int draws = inputs.draws.recordcount();
    grid.SetCell(row, 1, "杀对的概率");
    int col = kFirstKillCol;
    for (const int wrong : counters.wrongByCol) {
        grid.SetCell(row, col, NumberText(Percent(draws - wrong, draws)));
        grid.SetFont(row, col, "Arial Narrow", 8);
        ++col;
    }
    grid.SetCell(row, col + 1, NumberText(Percent(counters.okCount, draws)));
}

}  // namespace

std::string KillPredictRow(Session& session, const std::string& formulaText,
                           const EarlierDraws& earlier, const std::string& targetDraw) {
    if (formulaText.empty()) {
        session.host.ShowMessage("条件错误！");
        return {};
    }
    if (!earlier.full()) {
        session.host.ShowMessage("数据不足！");
        return {};
    }
    std::vector<std::string> blocks;
    for (const std::string& formula : Split(formulaText, "|")) {
        const std::vector<std::string> parts = Split(formula, ",");
        const int q = static_cast<int>(Val(parts.front()));
        const int b = static_cast<int>(Val(parts.back()));
        int hits = 0;
        blocks.push_back(ShiftDraw(targetDraw, earlier.Before(q).text, b, hits, ShiftMode::kMinus));
    }
    return Join(blocks, ",");
}

bool KillRecommend(Session& session, const PeriodRange& range, KillRecommendation& result) {
    Inputs inputs;
    if (!ReadInputs(session, range, inputs)) return false;
    ResultGrid grid = EmptyGrid(inputs);
    Counters counters;
    counters.wrongByCol.resize(static_cast<std::size_t>(KillCount(inputs)));
    int row = 1;
    for (Recordset& draws = inputs.draws; !draws.eof(); draws.MoveNext(), ++row) {
        FillDrawRow(session, inputs, grid, row, counters);
        inputs.earlier.Push(draws.Text("kjhm"));
    }
    FillForecastRow(session, inputs, grid, row);
    FillProbabilityRow(inputs, grid, row + 1, counters);
    result = {std::move(grid), Caption(inputs)};
    return true;
}

}  // namespace ssq
