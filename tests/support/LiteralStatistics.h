// The formula statistics as the rule tells them: one query per formula and a plain walk over its
// rows. Slow; what tests and benchmarks compare with.
#pragma once

#include <string>
#include <vector>

namespace ssq {

struct Session;

// The nine cells of each listed formula. BMHZ must be complete and numbered up to `endIssue`, whose
// next draw is `nextDraw` (empty while it has not taken place).
std::vector<std::vector<std::string>> LiteralStatistics(Session& session,
                                                        const std::string& condition,
                                                        const std::string& endIssue,
                                                        const std::string& nextDraw);

}  // namespace ssq
