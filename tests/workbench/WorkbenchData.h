// A history of twenty draws with hand-made hits, small enough to work the statistics out by hand.
#pragma once

#include <string>
#include <vector>

#include "draws/Public_var.h"
#include "formulas/BMHZ.h"
#include "support/TestDatabase.h"
#include "ui/ResultGrid.h"

namespace ssq {

// Issues 2003001 to 2003020; the edge table has rows from 2003012, so nine. The last three draws
// differ from the others.
inline void AddTwentyDraws(TestDatabase& database) {
    for (int issue = 2003001; issue <= 2003020; ++issue) {
        const char* reds = issue == 2003020   ? "05,10,15,20,25,33"
                           : issue == 2003019 ? "04,09,14,20,26,31"
                           : issue == 2003018 ? "01,02,03,04,05,14"
                                              : "01,02,03,04,05,06";
        database.AddDraw(issue, "2003-04-01", reds, 7);
    }
}

// Gives a formula its hits on the nine draws from 2003012, oldest first.
inline void SetHits(TestDatabase& database, const std::string& key, const std::string& hits) {
    int issue = 2003012;
    for (const char level : hits) {
        database.Run("update bmhz set " + key + "=" + std::string(1, level) +
                     " where kjqh=" + std::to_string(issue++));
    }
}

// Fills the edge table with `level` in every cell.
inline void FillEdgeTable(TestDatabase& database, int level) {
    EnsureEdgeTable(database.session());
    database.Run("update bmhz set " + FormulaColumns("=" + std::to_string(level)));
}

// The texts of a row.
inline std::vector<std::string> Row(const ResultGrid& grid, int row) {
    std::vector<std::string> cells;
    cells.reserve(static_cast<std::size_t>(grid.cols()));
    for (int col = 0; col < grid.cols(); ++col) cells.push_back(grid.cell(row, col));
    return cells;
}

}  // namespace ssq
