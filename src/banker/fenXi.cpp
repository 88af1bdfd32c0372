#include "banker/fenXi.h"

#include <algorithm>
#include <array>
#include <ctime>

#include "banker/PositionRates.h"
#include "base/combinations.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr std::string_view kTooFewDraws = "数据不足，请重新学习！";

// 100 learning draws, one extra, and the four draws behind the oldest.
constexpr int kDrawsRead = 105;

// Position 22 is left out on purpose: no formula ever uses it.
constexpr std::array<int, 23> kCandidates = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                                             12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 23};

// Percent that a formula must reach, by its number of bankers from 1 to 5.
constexpr std::array<double, 5> kThresholds = {30, 40, 50, 70, 80};

bool IsRoundHit(const std::vector<std::string>& hm, std::size_t round,
                const std::vector<std::string>& positions) {
    const std::vector<std::string> window =
        Split(Join({hm.begin() + static_cast<std::ptrdiff_t>(round) + 1,
                    hm.begin() + static_cast<std::ptrdiff_t>(round) + 1 + kDrawsInWindow},
                   ","),
              ",");
    std::string picks;
    for (const std::string& position : positions) {
        const std::string& ball = window.at(static_cast<std::size_t>(WholePart(position)));
        if (!Contains(picks, ball)) picks += ball + ",";
    }
    int count = 0;
    CountCommonBalls(hm[round], picks, 0, 0, count);
    return count > 0;
}

bool ReadLearningDraws(Session& session, const std::string& endIssue,
                       std::vector<DrawBalls>& draws) {
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select top " + std::to_string(kDrawsRead) +
                         " * from cphm where kjqh<=" + endIssue + " order by kjqh desc",
                     rows)) {
        return false;
    }
    for (; !rows.eof(); rows.MoveNext()) {
        DrawBalls& balls = draws.emplace_back();
        for (std::size_t i = 0; i < balls.size(); ++i) {
            balls[i] = static_cast<int>(rows.Int("a" + std::to_string(i + 1)));
        }
    }
    return true;
}

std::string FormulaText(std::span<const int> formula) {
    std::string text;
    for (const int position : formula) {
        if (!text.empty()) text += ',';
        text += std::to_string(position);
    }
    return text;
}

double CombinationCount(std::size_t items, int size) {
    double count = 1;
    for (int i = 0; i < size; ++i) count = count * static_cast<double>(items - i) / (i + 1);
    return count;
}

// Scores every formula of `dmgs` positions and stores those that reach the threshold.
bool StoreGoodFormulas(Session& session, const PositionRates& rates, int dmgs,
                       const LearnProgress& progress) {
    const double threshold = kThresholds[static_cast<std::size_t>(dmgs - 1)];
    const double total = CombinationCount(kCandidates.size(), dmgs);
    double index = 0;
    WriteBatch batch(session.host, session.connection);
    const auto store = [&](std::span<const int> formula, double rate) {
        if (!session.host.Yield()) return false;
        if (!progress(NumberText(Percent(index, total)))) return false;
        ++index;
        if (rate < threshold) return true;
        return ExecuteOrTell(session, "Insert into trate(gs,rate) values('" + FormulaText(formula) +
                                          "'," + NumberText(rate) + ")");
    };
    return rates.ForEachFormula(kCandidates, dmgs, store) && CommitOrTell(session, batch);
}

}  // namespace

double FormulaHitRate(Host& host, const std::vector<std::string>& hm, std::string_view formula,
                      int xxqs) {
    const std::vector<std::string> positions = Split(formula, ",");
    int hits = 0;
    for (int round = 0; round <= xxqs; ++round) {
        if (!host.Yield()) return 0;
        if (IsRoundHit(hm, static_cast<std::size_t>(round), positions)) ++hits;
    }
    return Percent(hits, xxqs);
}

bool LearnFormulas(Session& session, const std::string& endIssue, const LearnProgress& progress) {
    if (!ExecuteOrTell(session, "delete from trate")) return false;
    std::vector<DrawBalls> draws;
    if (!ReadLearningDraws(session, endIssue, draws)) return false;
    const int dmgs = GetBankerCount(session);
    const int xxqs = GetLearnPeriods(session);
    const bool known = dmgs >= 1 && dmgs <= static_cast<int>(kThresholds.size()) && xxqs >= 1;
    if (!known || draws.size() < static_cast<std::size_t>(xxqs) + 1 + kDrawsInWindow) {
        session.host.ShowMessage(std::string(kTooFewDraws));
        return false;
    }
    return StoreGoodFormulas(session, PositionRates(draws, xxqs), dmgs, progress);
}

bool RecordLearning(Session& session) {
    if (!ExecuteOrTell(session, "delete from xxjl where id< (select min(id) from xxjlmin)")) {
        return false;
    }
    Recordset best;
    if (!QueryOrTell(session, "Select top 3 * from trate order by rate desc", best)) return false;
    if (best.recordcount() < 3) {
        session.host.ShowMessage(std::string(kTooFewDraws));
        return false;
    }
    std::string formulas;
    std::string rates;
    for (int i = 0; i < 3; ++i, best.MoveNext()) {
        formulas += ",'" + best.Text("gs") + "'";
        rates += "," + best.Text("rate");
    }
    return ExecuteOrTell(
        session, "insert into xxjl(rdate,rqs,r1gs,r2gs,r3gs,r1mz,r2mz,r3mz) values('" + NowText() +
                     "'," + std::to_string(GetLearnPeriods(session)) + formulas + rates + ")");
}

}  // namespace ssq
