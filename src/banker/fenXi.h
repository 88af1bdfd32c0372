// Banker learning: which positions in the last four draws have pointed at a ball of the next.
#pragma once

#include <string>

namespace ssq {

class Run;
struct Session;

// Learns up to the end issue with the stored settings: trate then holds every formula that
// reaches the threshold of its size, and xxjl the best three, both written in one go at the end
// of the run. With too few draws trate is emptied. False when the run did not get to its end;
// what there was to say has been shown.
bool LearnFormulas(Session& session, const std::string& endIssue, Run& run);

}  // namespace ssq
