// Each of the 130 shifting formulas as a signal of its own: how often a condition on its hits
// held, in what runs, with what gaps, and the six numbers it names for the next draw.
#pragma once

#include <array>
#include <bitset>
#include <optional>
#include <string>
#include <vector>

#include "draws/Draw.h"
#include "formulas/BMHZ.h"
#include "ui/ResultGrid.h"

namespace ssq {

class Run;
struct Session;

inline constexpr std::array kComparisons = {"<=", ">=", "=", ">", "<"};

// A draw on which the formula's number of drawn reds meets this is called a hit below.
struct FormulaCondition {
    std::string comparison;  // one of kComparisons
    int reds = 0;

    bool operator==(const FormulaCondition&) const = default;
};

// For each number of drawn reds whether it meets the condition.
using HitLevels = std::bitset<kRedsInDraw + 1>;
HitLevels LevelsMeeting(const FormulaCondition& condition);

// The walk over the hits of one formula, oldest first. Positions (qid) count the draws from 1.
struct FormulaStats {
    int count = 0;
    // Longest run of adjacent hits. A run counts once it grows beyond its first hit, the run
    // from the first draw of all at once; so hits that never meet show 0.
    int maxRun = 0;
    int maxGap = 0;  // draws without a hit before a hit, the ones before the first included
    int run = 0;     // as of the last hit
    int lastQid = 0;

    void Hit(int qid);

    // As of the newest of `total` draws.
    int CurrentRun(int total) const { return total - lastQid >= 1 ? 0 : run; }
    int CurrentGap(int total) const;
};

// Columns of the statistics grid. The filter results share those up to the current gap.
enum FormulaColumn {
    kKeyColumn,
    kCountColumn,
    kRateColumn,
    kMaxRunColumn,
    kMaxGapColumn,
    kRunColumn,
    kGapColumn,
    kNumbersColumn,
    kHitsColumn,
    kStatisticsColumns,
};

// A row of the statistics, as numbers.
struct FormulaRow {
    ShiftFormula formula;
    FormulaStats stats;
    std::string numbers;  // that the formula names for the next draw
};

struct FormulaReport {
    std::string nextDrawLine;  // which draw is forecast, and its reds once it took place
    ResultGrid grid;
    std::vector<FormulaRow> rows;  // of the grid, from row 1 on
    std::string remark;            // what luck gives; empty without draws
};

// Headings, widths and alignments of the columns up to the current gap, on a grid with one fixed
// row.
void SetUpFormulaColumns(ResultGrid& grid);

// Brings the edge-code table up to date and fills 131 rows: the heading, then one per formula that
// hit up to the end issue, in FormulaIndex order; rows left over stay empty. Nothing after a
// failure that has been shown, or when the run was ended.
std::optional<FormulaReport> FormulaStatistics(Session& session, const FormulaCondition& condition,
                                               const std::string& endIssue, Run& run);

}  // namespace ssq
