// The draw update: reads the results site's list of draws and appends the new ones to cphm.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ssq {

struct Session;

// The new draws of one update, newest first, as the pages have them.
struct Harvest {
    std::vector<std::string> NewDates;    // such as 2009年01月04日
    std::vector<std::string> NewNumbers;  // six reds and "+" before the blue
    std::vector<std::int32_t> NewIssues;
    int PageNumber = 0;  // last page fetched

    int HarvestCount() const { return static_cast<int>(NewIssues.size()); }
};

// The newest issue of the site, as its first page has it; empty after the box of CutBetween.
std::string LatestOnlineIssue(Session& session);

// Walks the list's pages, newest first, to the first issue not above `localIssue` or to the first
// draw of the game. False after telling the user: the harvest is not to be used. A page behind the
// first that has no data ends the walk with what the pages before it gave. All values have been
// checked. False, too, when the program is being closed.
bool HarvestPages(Session& session, std::int32_t localIssue, Harvest& harvest);

// Appends the draws to cphm, oldest first, and tells how many there were. A failure shows the
// store's text and stops; rows already inserted stay.
void InsertDraws(Session& session, const Harvest& harvest);

// The whole update, with its messages. True when draws may have been inserted: LatestIssue and
// DrawCount are read anew, and what shows them is to be refilled.
bool UpdateDraws(Session& session);

}  // namespace ssq
