// The formula statistics over the whole history: one query per formula and a plain walk, against
// one pass over the table.
#include <cstddef>
#include <cstdlib>
#include <string>
#include <vector>

#include "Query.h"
#include "Ratio.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "formulas/BMHZ.h"
#include "support/TestDatabase.h"
#include "ui/Run.h"
#include "workbench/FormulaStatistics.h"

namespace {

using Cells = std::vector<std::vector<std::string>>;

Cells Listed(const ssq::ResultGrid& grid) {
    Cells listed;
    for (int row = 1; row < grid.rows() && !grid.cell(row, 0).empty(); ++row) {
        std::vector<std::string>& cells = listed.emplace_back();
        for (int col = 0; col < grid.cols(); ++col) cells.push_back(grid.cell(row, col));
    }
    return listed;
}

using ssq::Recordset;
using ssq::Session;
using ssq::Split;

std::string QueryOf(const std::string& key, const std::string& condition,
                    const std::string& endIssue) {
    return "Select kjqh,qid, " + key + ",Q1B1 from BMHZ where " + key + condition +
           " and kjqh<=" + endIssue + " order by kjqh asc";
}

std::string Lowered(const std::string& draw, int offset) {
    std::vector<std::string> numbers;
    for (const std::string& item : Split(draw, ",")) {
        const int number = std::stoi(item) - offset;
        numbers.push_back(ssq::TwoDigits(number < 1 ? 33 + number : number));
    }
    return ssq::Join(numbers, ",");
}

std::string DrawnAmong(const std::string& nextDraw, const std::string& numbers) {
    if (nextDraw.empty()) return "未开奖";
    int drawn = 0;
    for (const std::string& number : Split(numbers, ",")) drawn += ssq::Contains(nextDraw, number);
    return std::to_string(drawn);
}

// The nine cells of each listed formula, one query per formula.
Cells LiteralStatistics(Session& session, const std::string& condition, const std::string& endIssue,
                        const std::string& nextDraw) {
    std::vector<std::string> draws;
    Recordset newest =
        Query(session, "Select top 10 * from cphm where kjqh<=" + endIssue + " order by kjqh desc");
    for (; !newest.eof(); newest.MoveNext()) draws.push_back(newest.Text("kjhm"));
    const int total = static_cast<int>(
        Query(session, "select count(*) from bmhz where kjqh<=" + endIssue).Int(0));

    Cells listed;
    for (const std::string& key : Split(ssq::FormulaColumns(), ",")) {
        const auto middle = key.find('B');
        const int q = std::stoi(key.substr(1, middle - 1));
        const int b = std::stoi(key.substr(middle + 1));
        Recordset rows = Query(session, QueryOf(key, condition, endIssue));
        if (rows.eof()) continue;
        int maxRun = 0;
        int maxGap = 0;
        int lastQid = 0;
        int run = 0;
        for (; !rows.eof(); rows.MoveNext()) {
            const int qid = static_cast<int>(rows.Int("qid"));
            if (qid - lastQid == 1) {
                if (++run > maxRun) maxRun = run;
            } else {
                if (qid - lastQid - 1 > maxGap) maxGap = qid - lastQid - 1;
                run = 1;
            }
            lastQid = qid;
        }
        if (total - lastQid >= 1) run = 0;
        const std::string numbers = Lowered(draws[static_cast<std::size_t>(q - 1)], b);
        listed.push_back({key, std::to_string(rows.recordcount()),
                          ssq::NumberText(ssq::Percent(rows.recordcount(), total)),
                          std::to_string(maxRun), std::to_string(maxGap), std::to_string(run),
                          std::to_string(std::abs(total - lastQid)), numbers,
                          DrawnAmong(nextDraw, numbers)});
    }
    return listed;
}

// Both ways for one condition; the rule takes its own draw after the end issue.
void Compare(ssq::Session& session, const ssq::FormulaCondition& condition, const std::string& end,
             int runs) {
    std::optional<ssq::FormulaReport> report;
    const double seconds = ssq::SecondsOf(runs, [&] {
        ssq::Run run(session.host);
        report = ssq::FormulaStatistics(session, condition, end, run);
    });
    const std::string next =
        Query(session, "select top 1 kjhm from cphm where kjqh>" + end + " order by kjqh asc")
            .Text(0);
    const std::string text = condition.comparison + std::to_string(condition.reds);
    Cells expected;
    const double baseline = ssq::SecondsOf(runs, [&] {
        ssq::RenumberEdgeTable(session, end);
        expected = LiteralStatistics(session, text, end, next);
    });
    ssq::RequireEqual(Listed(report->grid) == expected && expected.size() > 100,
                      "formula statistics, " + text + " up to " + end);
    ssq::PrintRatio("formula statistics, " + text + " up to " + end, baseline, seconds);
}

}  // namespace

int main() {
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    ssq::Session& session = database.session();
    ssq::RequireEqual(ssq::EnsureEdgeTable(session), "formula statistics, preparation");
    Compare(session, {"<=", 1}, session.LatestIssue, 3);
    Compare(session, {">", 3}, "2015100", 1);
    return 0;
}
