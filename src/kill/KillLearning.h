// A run of kill learning: from the stored settings to the stored set of formulas.
#pragma once

#include <string>

#include "kill/KillSearch.h"
#include "kill/KillSettings.h"

namespace ssq {

class Run;
struct Session;

enum class KillLearnOutcome {
    kSearched,   // to the end of the sets; `best` may be empty
    kRefused,    // ended early; what there was to say has been shown
    kTooLittle,  // the same for too few draws or an edge table that cannot be read
};

struct KillLearnResult {
    KillLearnOutcome outcome = KillLearnOutcome::kRefused;
    KillSettings settings;  // learned with
    KillSearchResult best;
};

// Searches the best set for the newest draws up to `endIssue` with the stored settings.
KillLearnResult KillLearn(Session& session, const std::string& endIssue, Run& run);

// What becomes of a search.
enum class KillStoreOutcome {
    kStored,        // the set is in force and logged
    kNothingFound,  // no set reached the rate, which has been told; the stored one stays
    kFailed,        // not stored; the store's text has been shown
};
KillStoreOutcome StoreKillSet(Session& session, const std::string& endIssue,
                              const KillLearnResult& learned);

}  // namespace ssq
