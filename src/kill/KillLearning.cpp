#include "kill/KillLearning.h"

#include <algorithm>
#include <optional>

#include "base/numbers.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"
#include "draws/queries.h"
#include "formulas/BMHZ.h"
#include "kill/KillRecords.h"
#include "store/Transaction.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

KillLearnResult Refuse(Session& session, const std::string& text) {
    session.host.ShowMessage(text);
    return {};
}

std::optional<HitMatrix> ReadMatrix(Session& session, const std::string& endIssue, int xxqs) {
    const int draws = std::max(xxqs, 0);
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select top " + std::to_string(draws) + " " + FormulaColumns() +
                         " from BMHZ where kjqh<=" + endIssue + " order by kjqh desc",
                     rows)) {
        return std::nullopt;
    }
    if (rows.recordcount() < draws) {
        session.host.ShowMessage("数据不足！");
        return std::nullopt;
    }
    HitMatrix matrix(draws);
    for (int draw = 0; draw < draws; rows.MoveNext(), ++draw) {
        for (int formula = 0; formula < kFormulaCount; ++formula) {
            matrix.Set(draw, formula, static_cast<int>(rows.Int(formula)));
        }
    }
    return matrix;
}

KillSearchResult Search(const HitMatrix& matrix, const KillSettings& settings, Run& run) {
    const KillGoal goal{settings.dmgs + 1, settings.rc, settings.setRate};
    const std::int64_t sets = KillSetCount(goal.setSize);
    const auto show = [&](std::int64_t done) {
        return run.Step(static_cast<double>(done), static_cast<double>(sets));
    };
    KillSearchResult result = FindBestKillSet(matrix, goal, show);
    // The smaller sizes count their sets from 0, the size of four counts from 1.
    const bool countsFromOne = goal.setSize == kLargestKillSet;
    result.finished = result.finished && show(countsFromOne ? sets : sets - 1);
    return result;
}

}  // namespace

KillLearnResult KillLearn(Session& session, const std::string& endIssue, Run& run) {
    if (!CheckPeriod(session, {endIssue, endIssue})) return {};
    run.Tell("准备数据中，首次运行较慢");
    const bool isReady = EnsureEdgeTable(session);
    if (!run.goesOn()) return {};
    if (!isReady) return Refuse(session, "汇总数据出错！");
    const std::optional<KillSettings> settings = ReadKillSettings(session);
    if (!settings) return Refuse(session, "读取参数出错！");
    const std::optional<HitMatrix> matrix = ReadMatrix(session, endIssue, settings->xxqs);
    if (!matrix) return {KillLearnOutcome::kTooLittle, *settings, {}};
    run.Tell("准备数据完成,开始学习！");
    if (settings->dmgs < 0 || settings->dmgs >= kLargestKillSet) {
        return Refuse(session, "参数错误！");
    }
    KillSearchResult best = Search(*matrix, *settings, run);
    if (!best.finished) return {};
    return {KillLearnOutcome::kSearched, *settings, std::move(best)};
}

KillStoreOutcome StoreKillSet(Session& session, const std::string& endIssue,
                              const KillLearnResult& learned) {
    if (learned.best.formulas.empty()) {
        session.host.ShowMessage("该学习条件无数据,请降低概率后重新学习！");
        return KillStoreOutcome::kNothingFound;
    }
    const std::string dsgs = NumberListText(learned.best.formulas);
    Transaction all(session.connection);
    all.Execute("delete from tDs where dstype=1");
    all.Execute("Insert into tDs(dsgs,dsrate,dstype) values(?,?,1)", {dsgs, learned.best.rate});
    if (!CommitOrTell(session, all)) return KillStoreOutcome::kFailed;
    const KillSettings& settings = learned.settings;
    AddKillRecord(session,
                  {endIssue, settings.xxqs, settings.dmgs, settings.rc, learned.best.rate, dsgs});
    return KillStoreOutcome::kStored;
}

}  // namespace ssq
