// A run of kill learning: from the accepted settings to the stored set of formulas.
#pragma once

#include <functional>
#include <string>

#include "ui/Host.h"

namespace ssq {

struct Session;

// What a run shows while it lasts.
struct KillLearnView {
    ProgressText tell;              // the texts that mark the run's steps
    ProgressText percent;           // the share of sets tested
    std::function<void()> release;  // the run is over: hide the strip, enable its button
};

enum class KillLearnOutcome {
    kLearned,       // a set was found and stored
    kNothingFound,  // no set reached the rate; the stored one stays
    kFailed,        // ended early; what there was to say has been shown
};

struct KillLearnResult {
    KillLearnOutcome outcome = KillLearnOutcome::kFailed;
    int xxqs = 0;  // draws learned on
};

// Learns on the newest draws up to `endIssue` with the stored settings. `release` is called
// unless too few draws, a failed reading of the edge table or the closing of the program ended
// the run.
KillLearnResult KillLearn(Session& session, const std::string& endIssue, const KillLearnView& view);

// Logs a run in tSrecord; all values as they go into the statement.
struct KillRecord {
    std::string endDate;
    std::string tQs;
    std::string tDsGs;
    std::string tRcGs;
    std::string tRate;
    std::string tGsStr;  // FormulaSet
    std::string tType;   // 1 for this subsystem
};
// False after showing the store's error text.
bool AddKillRecord(Session& session, const KillRecord& record);

}  // namespace ssq
