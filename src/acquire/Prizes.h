// The prize update: stake, carried pool and the six prizes of each draw, into cpjc.
#pragma once

#include "acquire/Update.h"

namespace ssq {

// Fetches the notice of every draw behind the newest row of cpjc, oldest first, with all messages
// but the closing one. Stops at the first notice that is not published, does not parse, or holds an
// amount beyond 32 bits; rows written before it stay, and the next update goes on from them. Adds
// the rows it writes to `written`, of which the closing box tells.
UpdateResult UpdatePrizes(Session& session, Run& run, int& written);

}  // namespace ssq
