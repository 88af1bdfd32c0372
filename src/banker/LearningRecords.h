// The log of banker learning runs, and the way back to one of them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "ui/ResultGrid.h"

namespace ssq {

struct Session;

struct LearnedFormula {
    std::string gs;
    std::string rate;
};

struct LearningRecord {
    std::string rqs;  // learning draws
    std::array<LearnedFormula, 3> best;
};

// The runs, newest first: the grid's row 1 + i shows records[i]. False after showing the error
// text.
bool ReadLearningRecords(Session& session, ResultGrid& grid, std::vector<LearningRecord>& records);

// Puts the record's number of draws into the settings (of every row of vqs) and its formulas into
// trate. Ends at the first failing statement, whose text is shown.
bool RestoreLearningRecord(Session& session, const LearningRecord& record);

}  // namespace ssq
