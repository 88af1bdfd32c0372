// The results of the other analyses as lines of a plan: the numbers each names for the next draw,
// how often such numbers met their range of late, and how often any numbers would have.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/RedSet.h"
#include "draws/NumberSource.h"

namespace ssq {

class BetColumns;
struct Session;

// A source held against the draws.
struct TakenResult {
    std::string name;
    bool isBlue = false;
    bool isAgainst = false;
    RedSet numbers;    // blues where isBlue
    std::string line;  // of a plan, with its remark
};

// The sources there are: the kill formulas and the banker formulas in force, the red and the blue
// wrap; the hot and the cold reds and the user's own formulas as their panels show them, or with
// the panels' first settings; and the picks in the main chart. Formulas that were not learned, or
// cannot be read, are left out; nothing is shown.
std::vector<NumberSource> NumberSources(Session& session, const NumbersAtHand& atHand);

// Holds each source against the last 100 of the draws (oldest first) and takes what it names for
// the one behind them. Sources that name nothing are left out.
std::vector<TakenResult> TakeResults(std::span<const NumberSource> sources,
                                     std::span<const Draw> draws);

// The shortest range of counts around the likeliest that holds for at least four in five of all
// bets, when so many reds are named.
CountRange LikelyRange(int named);

// Share in percent of all bets that hold between low and high of so many named reds.
double ChanceOf(int named, CountRange range);

// The conditions of a clipboard text as lines with rate and chance; none unless the text is nothing
// but right conditions. `columns` serve the count.
std::vector<std::string> TakeConditions(std::string_view text, std::span<const Draw> draws,
                                        BetColumns& columns);

// The plan with these lines at its end in place of those taken before. A line of 蓝球 becomes a
// remark where the plan has its own, and a condition that stands there already is left out.
std::string WithTaken(const std::string& plan, std::span<const std::string> lines);

}  // namespace ssq
