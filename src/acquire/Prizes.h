// The prize update: stake, carried pool and the six prizes of each draw, into cpjc.
#pragma once

namespace ssq {

struct Session;

// Fetches the notice of every draw behind the newest row of cpjc, oldest first, with all messages.
// Stops at the first notice that is not published, does not parse, or holds an amount beyond 32
// bits; rows written before it stay, and the next update goes on from them. Returns the number of
// rows written. Ends without a message when the program is being closed.
int UpdatePrizes(Session& session);

}  // namespace ssq
