#include "banker/Recommendation.h"

#include <array>
#include <cstdint>
#include <vector>

#include "banker/PositionRates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kGroups = 3;
constexpr int kFirstDataRow = 2;
constexpr Rgb kStripe{236, 241, 241};
constexpr Rgb kHit{215, 133, 110};
constexpr Rgb kRichPool{0, 0, 250};
constexpr std::int64_t kRichPoolYuan = 300'000'000;

using Formula = std::vector<std::size_t>;

struct Inputs {
    int dmgs = 0;
    std::array<Formula, kGroups> formulas;
    std::vector<std::string> draws;  // oldest first: the ones before the range, then its own
    std::size_t earlier = 0;         // how many stand before the range
    Recordset range;                 // rows of cphmjc
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
    Recordset rows;
    if (!QueryOrTell(session,
                     "select top 5 * from cphm where kjqh<" + start + "  order by kjqh desc",
                     rows)) {
        return false;
    }
    if (rows.recordcount() < kAskedFor) return Refuse(session, "数据不足");
    for (; !rows.eof(); rows.MoveNext()) {
        inputs.draws.insert(inputs.draws.begin(), rows.Text("kjhm"));
    }
    inputs.earlier = inputs.draws.size();
    return true;
}

bool ReadFormulas(Session& session, Inputs& inputs) {
    Recordset rows;
    if (!QueryOrTell(session, "Select top 3 * from trate order by rate desc", rows)) return false;
    if (rows.recordcount() < kGroups) return Refuse(session, "数据不足，请重新学习！");
    for (Formula& formula : inputs.formulas) {
        for (const std::string& position : Split(rows.Text("gs"), ",")) {
            formula.push_back(static_cast<std::size_t>(WholePart(position)));
        }
        rows.MoveNext();
    }
    return true;
}

bool ReadRange(Session& session, const PeriodRange& range, Inputs& inputs) {
    if (!QueryOrTell(session,
                     "Select * from cphmjc where kjqh>=" + range.start + " and kjqh<=" + range.end +
                         " order by kjqh asc",
                     inputs.range)) {
        return false;
    }
    for (Recordset& rows = inputs.range; !rows.eof(); rows.MoveNext()) {
        inputs.draws.push_back(rows.Text("kjhm"));
    }
    inputs.range.MoveFirst();
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
    inputs.dmgs = GetBankerCount(session);
    if (!CheckOrderedPeriod(session, range) || !CheckPrizesComplete(session) ||
        !ReadEarlierDraws(session, range.start, inputs) || !ReadFormulas(session, inputs) ||
        !ReadRange(session, range, inputs) || !CheckFormulaSize(session, inputs)) {
        return false;
    }
    inputs.nextIssue = NextIssue(session, range.end);
    return inputs.nextIssue != 0;
}

// The 24 balls of the four draws before draw number `index`, newest draw first.
std::vector<std::string> Window(const Inputs& inputs, std::size_t index) {
    std::vector<std::string> balls;
    for (std::size_t back = 1; back <= kDrawsInWindow; ++back) {
        for (std::string& ball : Split(inputs.draws[index - back], ",")) {
            balls.push_back(std::move(ball));
        }
    }
    return balls;
}

int FirstColumn(const Inputs& inputs, int group) {
    return 2 + group * (inputs.dmgs + 1);
}

ResultGrid EmptyGrid(const Inputs& inputs) {
    const int dmgs = inputs.dmgs;
    ResultGrid grid(inputs.range.recordcount() + 4, kGroups * dmgs + 5, 2, 2);
    grid.SetMergeRow(0);
    grid.SetMergeAllCols();
    grid.SetAllRowHeights(300);
    grid.SetColWidth(0, 700);
    grid.SetColWidth(1, 1880);
    grid.SetColWidths(2, grid.cols() - 1, 550);
    grid.SetAllAlignments(Align::kCentre);

    grid.SetCell(0, 0, "开奖号码区");
    grid.SetCell(0, 1, "开奖号码区");
    grid.SetCell(1, 0, "期号");
    grid.SetCell(1, 1, "开奖号码");
    constexpr std::array<const char*, kGroups> kTitles = {"第一组胆码", "第二组胆码", "第三组胆码"};
    for (int group = 0; group < kGroups; ++group) {
        const int first = FirstColumn(inputs, group);
        for (int j = 0; j <= dmgs; ++j) {
            grid.SetCell(0, first + j, kTitles[static_cast<std::size_t>(group)]);
            grid.SetCell(1, first + j, j < dmgs ? std::to_string(j + 1) : "命中");
        }
    }
    return grid;
}

// Writes the bankers of one group; returns how many occur in `drawText`, marking those cells.
// Equal balls at two positions count twice here.
int FillGroup(const Inputs& inputs, ResultGrid& grid, int row, int group,
              const std::vector<std::string>& window, const std::string& drawText) {
    const Formula& formula = inputs.formulas[static_cast<std::size_t>(group)];
    int hits = 0;
    for (int j = 0; j < inputs.dmgs; ++j) {
        const int col = FirstColumn(inputs, group) + j;
        grid.SetBack(row, col, kStripe);
        const auto position = static_cast<std::size_t>(j);
        if (position >= formula.size() || formula[position] >= window.size()) continue;
        const std::string& ball = window[formula[position]];
        grid.SetCell(row, col, ball);
        if (Contains(drawText, ball)) {
            grid.SetBack(row, col, kHit);
            ++hits;
        }
    }
    return hits;
}

using GroupHits = std::array<int, kGroups>;

void FillDrawRow(const Inputs& inputs, ResultGrid& grid, int row, GroupHits& groupHits) {
    const Recordset& draw = inputs.range;
    const std::string kjhm = draw.Text("kjhm");
    grid.SetCell(row, 0, ShortIssue(draw.Text("kjqh")));
    grid.SetCell(row, 1, kjhm);
    if (draw.Number("xqjc") > static_cast<double>(kRichPoolYuan)) grid.SetFore(row, 1, kRichPool);

    const auto index = inputs.earlier + static_cast<std::size_t>(row - kFirstDataRow);
    const std::vector<std::string> window = Window(inputs, index);
    for (int group = 0; group < kGroups; ++group) {
        const int hits = FillGroup(inputs, grid, row, group, window, kjhm);
        grid.SetCell(row, FirstColumn(inputs, group) + inputs.dmgs, std::to_string(hits));
        if (hits > 0) ++groupHits[static_cast<std::size_t>(group)];
    }
}

void FillNextIssueRow(const Inputs& inputs, ResultGrid& grid, int row) {
    grid.SetCell(row, 1, std::to_string(inputs.nextIssue) + "期推荐胆码");
    const std::vector<std::string> window = Window(inputs, inputs.draws.size());
    for (int group = 0; group < kGroups; ++group) FillGroup(inputs, grid, row, group, window, {});
}

void FillRateRow(const Inputs& inputs, ResultGrid& grid, int row, const GroupHits& groupHits) {
    grid.SetCell(row, 1, "每组命中概率");
    for (int group = 0; group < kGroups; ++group) {
        const double rate =
            Percent(groupHits[static_cast<std::size_t>(group)], inputs.range.recordcount());
        grid.SetCell(row, FirstColumn(inputs, group) + inputs.dmgs, NumberText(rate));
    }
}

}  // namespace

std::string LearningModeText(Session& session) {
    const int xxqs = GetLearnPeriods(session);
    const int dmgs = GetBankerCount(session);
    return "当前模式: 学习的期数是" + std::to_string(xxqs) + "期,学习的胆码是" +
           std::to_string(dmgs) + "个   胆码推荐需要奖池信息更新之后才能推荐！";
}

bool RecommendBankers(Session& session, const PeriodRange& range, BankerRecommendation& result) {
    Inputs inputs;
    if (!ReadInputs(session, range, inputs)) return false;

    ResultGrid grid = EmptyGrid(inputs);
    GroupHits groupHits{};
    int row = kFirstDataRow;
    for (; !inputs.range.eof(); inputs.range.MoveNext()) {
        FillDrawRow(inputs, grid, row++, groupHits);
    }
    FillNextIssueRow(inputs, grid, row);
    FillRateRow(inputs, grid, row + 1, groupHits);
    result.grid = std::move(grid);
    result.caption =
        "分析结果  共" + std::to_string(inputs.range.recordcount()) + "期数据,概率降低请重新学习";
    return true;
}

}  // namespace ssq
