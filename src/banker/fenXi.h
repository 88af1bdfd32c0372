// Banker learning: which positions in the last four draws have pointed at a ball of the next.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ssq {

class Host;
struct Session;

// The share of rounds in percent, two decimals, in which at least one ball at the formula's
// positions came out. `hm` holds draw texts, newest first, four more than the rounds need;
// xxqs + 1 rounds are counted over a divisor of xxqs, so a rate can exceed 100. Positions count
// from 0 in the 24 balls of the four draws before the target.
double FormulaHitRate(Host& host, const std::vector<std::string>& hm, std::string_view formula,
                      int xxqs);

// Takes the percentage done; false ends the run quietly.
using LearnProgress = std::function<bool(const std::string& percent)>;

// Learns up to the end issue and stores in trate every formula that reaches the threshold of its
// size. False when the run did not get to its end; what there was to say has been shown.
bool LearnFormulas(Session& session, const std::string& endIssue, const LearnProgress& progress);

// Logs the run's best three formulas in xxjl. False after a failure, which has been shown.
bool RecordLearning(Session& session);

}  // namespace ssq
