// The commands of a script: what each does and what it adds to the reply.
#pragma once

#include "Json.h"

namespace ssq {

class Panels;
class Program;
class ScriptDesktop;

// What the commands work on.
struct Stage {
    Program& program;
    ScriptDesktop& desktop;
    Panels& panels;
};

// Runs one command. Returns its own fields of the reply, or null; throws where it cannot be carried
// out. Returns only after a modal window that it opened has been closed.
Json RunCommand(Stage& stage, const Json& command);

}  // namespace ssq
