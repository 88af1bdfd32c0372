// What the learned set of formulas would have killed on each draw of a period, and what it kills
// for the next issue.
#pragma once

#include <optional>
#include <string>

#include "draws/public_fun.h"
#include "kill/KillSettings.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

struct KillReport : GridReport {
    KillSettings settings;  // in force, with the size of the stored set
};

// Applies the set stored in tDs to the draws of the period; an empty start is the first draw.
// Nothing when it could not; the user has been told.
std::optional<KillReport> KillRecommend(Session& session, const PeriodRange& range);

// The kill numbers in row `rowSel` of a recommendation's grid as conditions of a number filter, a
// line to a formula; behind those of four formulas follow seven pairs across them. Every line ends
// in "\r\n"; empty without a selection.
std::string KillConditions(const ResultGrid& grid);

}  // namespace ssq
