// The updater beside the program.
#pragma once

namespace ssq {

class Desktop;
struct Session;

// Starts the file Update.exe in the program's folder, on the user's wish (`manual`) or at each
// start; says nothing when there is no such file.
void LaunchUpdater(const Session& session, Desktop& desktop, bool manual);

}  // namespace ssq
