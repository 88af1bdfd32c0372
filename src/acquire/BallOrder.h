// The update of the drawn order: fills cphm.cqsx where it is null.
#pragma once

namespace ssq {

struct Session;

// Asks the order service for one draw after the other, with all messages. Stops at the first that
// is not there; what was written stays, and the next update goes on from it. Returns the number of
// draws written. Ends without a message when the program is being closed.
int UpdateBallOrder(Session& session);

}  // namespace ssq
