// Each of the 130 shifting formulas as a signal of its own: how often a condition on its hits
// held, in what runs, with what gaps, and the six numbers it names for the next draw.
#pragma once

#include <array>
#include <string>

#include "ui/Host.h"
#include "ui/ResultGrid.h"

namespace ssq {

struct Session;

inline constexpr std::array kComparisons = {"<=", ">=", "=", ">", "<"};

// A draw on which the formula's number of drawn reds meets this is called a hit below.
struct FormulaCondition {
    std::string comparison;  // one of kComparisons
    int reds = 0;
};

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

struct FormulaStatisticsResult {
    std::string nextDrawLine;  // set as soon as the next draw is known
    ResultGrid grid;           // without rows until the run has begun
};

// Headings, widths and alignments of the columns up to the current gap, on a grid with one fixed
// row.
void SetUpFormulaColumns(ResultGrid& grid);

// Brings the edge-code table up to date. False after showing why not, or when the program is being
// closed. Hands control to the event loop on the way.
bool PrepareFormulaStatistics(Session& session);

// Fills 131 rows: the heading, then one per formula that hit up to the end issue, in FormulaIndex
// order; rows left over stay empty. `percent` takes the progress as text. False after a failure
// that has been shown; the result keeps what was done.
bool FormulaStatistics(Session& session, const FormulaCondition& condition,
                       const std::string& endIssue, const ProgressText& percent,
                       FormulaStatisticsResult& result);

}  // namespace ssq
