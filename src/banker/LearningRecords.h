// The log of banker learning runs, and the way back to one of them.
#pragma once

#include <optional>
#include <vector>

#include "banker/PositionFormulas.h"
#include "ui/ResultGrid.h"

namespace ssq {

struct Session;

struct LearningRecord {
    int xxqs = 0;                     // learning draws
    std::vector<ScoredFormula> best;  // empty where the stored ones are no three formulas
};

// The runs, newest first: the grid's row 1 + i shows records[i].
struct LearningRecords {
    ResultGrid grid;
    std::vector<LearningRecord> records;
};

// Nothing after showing the store's error text.
std::optional<LearningRecords> ReadLearningRecords(Session& session);

// Puts the record's formulas into trate, its number of draws into the settings (of every row of
// vqs) and its number of bankers into those of banker learning, and says so. All of it or, after
// telling the user why, nothing.
bool RestoreLearningRecord(Session& session, const LearningRecord& record);

}  // namespace ssq
