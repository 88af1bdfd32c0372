// How often each red number is named by the formulas that passed a filter.
#pragma once

#include <string>

#include "ui/ResultGrid.h"

namespace ssq {

struct Session;

struct NumberCountResult {
    std::string issueCaption;  // set as soon as the count has begun, empty before
    ResultGrid grid;
};

// Counts over a filter result, by way of the table hsort: the numbers named most often stand on
// the left, the ones that came out in the next draw are marked. False after showing why not.
bool CountNumbers(Session& session, const ResultGrid& filtered, const std::string& endIssue,
                  NumberCountResult& result);

}  // namespace ssq
