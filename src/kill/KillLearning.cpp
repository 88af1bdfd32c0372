#include "kill/KillLearning.h"

#include <algorithm>
#include <optional>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "formulas/BMHZ.h"
#include "kill/KillSearch.h"
#include "kill/KillSettings.h"

namespace ssq {

namespace {

// Shows the text while the strip still stands, then ends the run.
KillLearnResult Refuse(Session& session, const KillLearnView& view, const std::string& text) {
    session.host.ShowMessage(text);
    if (!session.host.stopping()) view.release();
    return {};
}

std::optional<HitMatrix> ReadMatrix(Session& session, const std::string& endIssue, int xxqs) {
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select top " + std::to_string(xxqs) + " " + FormulaColumns() +
                         " from BMHZ where kjqh<=" + endIssue + " order by kjqh desc",
                     rows)) {
        return std::nullopt;
    }
    if (rows.recordcount() < xxqs) {
        session.host.ShowMessage("数据不足！");
        return std::nullopt;
    }
    HitMatrix matrix(std::max(xxqs, 0));
    for (int draw = 0; draw < matrix.draws(); rows.MoveNext(), ++draw) {
        for (int formula = 0; formula < kFormulaCount; ++formula) {
            matrix.Set(draw, formula, static_cast<int>(rows.Int(formula)));
        }
    }
    return matrix;
}

// The share of the sets that the label shows last: the smaller sizes count from 0, the size of
// four counts from 1.
double LastPercent(int setSize, std::int64_t sets) {
    return Percent(static_cast<double>(setSize == kLargestKillSet ? sets : sets - 1),
                   static_cast<double>(sets));
}

KillSearchResult SearchShowingProgress(Session& session, const HitMatrix& matrix,
                                       const KillGoal& goal, const KillLearnView& view) {
    constexpr int kShownSteps = 10000;  // two decimals of a percentage
    const std::int64_t sets = KillSetCount(goal.setSize);
    std::int64_t nextShown = 0;
    KillSearchResult result = FindBestKillSet(matrix, goal, [&](std::int64_t done) {
        if (done >= nextShown) {
            view.percent(NumberText(Percent(static_cast<double>(done), static_cast<double>(sets))));
            nextShown = done + sets / kShownSteps;
        }
        return session.host.Yield();
    });
    if (result.finished) view.tell(NumberText(LastPercent(goal.setSize, sets)));
    return result;
}

std::string FormulaSetText(const std::vector<int>& formulas) {
    std::vector<std::string> indices;
    indices.reserve(formulas.size());
    for (const int index : formulas) indices.push_back(std::to_string(index));
    return Join(indices, ",");
}

bool StoreBest(Session& session, const std::string& dsgs, const std::string& dsrate) {
    return ExecuteOrTell(session, "delete from tDs where dstype=1") &&
           ExecuteOrTell(session, "Insert into tDs(dsgs,dsrate,dstype) values('" + dsgs + "'," +
                                      dsrate + ",1)");
}

KillLearnResult StoreAndRecord(Session& session, const std::string& endIssue,
                               const KillSettings& settings, const KillSearchResult& best) {
    if (best.formulas.empty()) {
        session.host.ShowMessage("该学习条件无数据,请降低概率后重新学习！");
        return {KillLearnOutcome::kNothingFound, settings.xxqs};
    }
    const std::string dsgs = FormulaSetText(best.formulas);
    const std::string rate = NumberText(best.rate);
    if (!StoreBest(session, dsgs, rate)) return {};
    AddKillRecord(session, {endIssue, std::to_string(settings.xxqs), std::to_string(settings.dmgs),
                            std::to_string(settings.rc), rate, dsgs, "1"});
    return {KillLearnOutcome::kLearned, settings.xxqs};
}

}  // namespace

KillLearnResult KillLearn(Session& session, const std::string& endIssue,
                          const KillLearnView& view) {
    view.tell("准备数据中，首次运行较慢");
    if (!EnsureEdgeTable(session)) return Refuse(session, view, "汇总数据出错！");
    const std::optional<KillSettings> settings = ReadKillSettings(session);
    if (!settings) return Refuse(session, view, "读取参数出错！");
    const std::optional<HitMatrix> matrix = ReadMatrix(session, endIssue, settings->xxqs);
    if (!matrix) return {};
    view.tell("准备数据完成,开始学习！");
    const int setSize = settings->dmgs + 1;
    if (setSize < 1 || setSize > kLargestKillSet) return Refuse(session, view, "参数错误！");
    const KillSearchResult best =
        SearchShowingProgress(session, *matrix, {setSize, settings->rc, settings->setRate}, view);
    if (!best.finished) return {};
    view.release();
    return StoreAndRecord(session, endIssue, *settings, best);
}

bool AddKillRecord(Session& session, const KillRecord& record) {
    return ExecuteOrTell(
        session, "Insert into tSrecord(endDate,tQs,tDsGs,tRcGs,tRate,tGsStr,tType) values(" +
                     record.endDate + "," + record.tQs + "," + record.tDsGs + "," + record.tRcGs +
                     "," + record.tRate + ",'" + record.tGsStr + "'," + record.tType + ")");
}

}  // namespace ssq
