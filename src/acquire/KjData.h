// The draw update: reads the results site's list of draws and appends the new ones to cphm.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "acquire/Update.h"

namespace ssq {

// The new draws of one update, newest first, as the pages have them.
struct Harvest {
    std::vector<std::string> NewDates;    // such as 2009年01月04日
    std::vector<std::string> NewNumbers;  // six reds and "+" before the blue
    std::vector<std::int32_t> NewIssues;
    int PageNumber = 0;  // last page fetched

    int HarvestCount() const { return static_cast<int>(NewIssues.size()); }
};

// The whole update, with its messages but the closing one. It walks the list's pages, newest first,
// to the first issue on file or to the first draw of the game, and appends the new draws, oldest
// first; `written` counts them. A value that cannot be ends the update without an insert. Where a
// page behind the first cannot be read, the draws in hand are inserted when they follow the newest
// one on file, and none otherwise, so that no gap stays behind. After an insert LatestIssue and
// DrawCount are read anew.
UpdateResult UpdateDraws(Session& session, Run& run, int& written);

}  // namespace ssq
