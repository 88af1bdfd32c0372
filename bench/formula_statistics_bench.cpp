// The formula statistics over the whole history: one query per formula and a plain walk, against
// one pass over the table.
#include <cstddef>
#include <string>
#include <vector>

#include "Ratio.h"
#include "app/Public_var.h"
#include "kill/BMHZ.h"
#include "support/LiteralStatistics.h"
#include "support/TestDatabase.h"
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

}  // namespace

int main() {
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    ssq::Session& session = database.session();
    const std::string end = session.LatestIssue;
    ssq::RequireEqual(ssq::PrepareFormulaStatistics(session), "formula statistics, preparation");

    ssq::FormulaStatisticsResult result;
    const auto ignore = [](const std::string&) {};
    const double seconds = ssq::SecondsOf(5, [&] {
        ssq::FormulaStatistics(session, {"<=", 1}, end, ignore, result);
    });
    Cells expected;
    const double baseline = ssq::SecondsOf(2, [&] {
        ssq::RenumberEdgeTable(session, end);
        expected = ssq::LiteralStatistics(session, "<=1", end, {});
    });
    ssq::RequireEqual(Listed(result.grid) == expected && expected.size() == ssq::kFormulaCount,
                      "formula statistics");
    ssq::PrintRatio("formula statistics over the whole history", baseline, seconds);
    return 0;
}
