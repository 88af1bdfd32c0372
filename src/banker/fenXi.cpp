#include "banker/fenXi.h"

#include "banker/PositionFormulas.h"
#include "base/dates.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"
#include "draws/queries.h"
#include "store/Transaction.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

constexpr const char* kTooLittle = "数据不足，请重新学习！";

// 100 learning draws, one extra, and the four draws behind the oldest.
constexpr int kDrawsRead = 105;

constexpr int kRecorded = 3;

// Logs the run with its best three formulas; the log keeps its newest runs.
void RecordLearning(Transaction& all, const std::vector<ScoredFormula>& good, int xxqs) {
    all.Execute("delete from xxjl where id< (select min(id) from xxjlmin)");
    const std::vector<ScoredFormula> best = BestOf(good, kRecorded);
    if (best.size() < kRecorded) return;
    Values values;
    values.emplace_back(NowText());
    values.emplace_back(std::int64_t{xxqs});
    for (const ScoredFormula& formula : best) values.emplace_back(FormulaText(formula.positions));
    for (const ScoredFormula& formula : best) values.emplace_back(formula.rate);
    all.Execute("insert into xxjl(rdate,rqs,r1gs,r2gs,r3gs,r1mz,r2mz,r3mz) values(?,?,?,?,?,?,?,?)",
                values);
}

bool Store(Session& session, const std::vector<ScoredFormula>& good, int xxqs) {
    {
        Transaction all(session.connection);
        all.Execute("delete from trate");
        Values row(2);
        for (const ScoredFormula& formula : good) {
            row[0] = FormulaText(formula.positions);
            row[1] = formula.rate;
            all.Execute("Insert into trate(gs,rate) values(?,?)", row);
        }
        RecordLearning(all, good, xxqs);
        if (!CommitOrTell(session, all)) return false;
    }
    if (good.size() < kRecorded) session.host.ShowMessage(kTooLittle);
    return true;
}

}  // namespace

bool LearnFormulas(Session& session, const std::string& endIssue, Run& run) {
    if (!CheckPeriod(session, {endIssue, endIssue})) return false;
    const auto settings = ReadBankerSettings(session);
    if (!settings) return false;
    const auto draws = ReadDrawsUpTo(session, endIssue, kDrawsRead);
    if (!draws) return false;
    std::vector<DrawBalls> balls;
    for (const Draw& draw : *draws) balls.push_back(draw.balls);
    if (!CanLearn(balls, *settings)) {
        if (ExecuteOrTell(session, "delete from trate")) session.host.ShowMessage(kTooLittle);
        return false;
    }
    const auto good = GoodFormulas(
        balls, *settings, [&run](double done, double total) { return run.Step(done, total); });
    return good && Store(session, *good, settings->xxqs);
}

}  // namespace ssq
