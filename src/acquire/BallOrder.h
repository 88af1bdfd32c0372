// The update of the drawn order: fills cphm.cqsx where it is null.
#pragma once

#include "acquire/Update.h"

namespace ssq {

// Asks the order service for one draw after the other, with all messages but the closing one. Stops
// at the first that is not there; what was written stays, and the next update goes on from it. Adds
// the draws it fills to `written`, of which the closing box tells.
UpdateResult UpdateBallOrder(Session& session, Run& run, int& written);

}  // namespace ssq
