// How often each red number is named by the formulas that passed a filter.
#pragma once

#include <optional>
#include <string>

#include "ui/ResultGrid.h"

namespace ssq {

struct Session;

// The caption that names the issue a count or a filter result stands on.
std::string CountCaption(const std::string& endIssue);

// Whether the grid holds a filter result; tells the user when not.
bool CheckIsFiltered(Session& session, const ResultGrid& filtered);

// Counts over a filter result, by way of the table hsort: the numbers named most often stand on
// the left, the ones that came out in the next draw are marked. Nothing after showing why not.
std::optional<ResultGrid> BuildNumberCount(Session& session, const ResultGrid& filtered,
                                           const std::string& endIssue);

}  // namespace ssq
