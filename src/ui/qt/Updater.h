// Starting the updater.
#pragma once

namespace ssq {

class Desktop;
struct Session;

// Starts the updater beside the program, on the user's wish (`manual`) or at each start; says
// nothing when there is none.
void LaunchUpdater(const Session& session, Desktop& desktop, bool manual);

}  // namespace ssq
