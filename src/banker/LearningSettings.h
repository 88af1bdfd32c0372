// The settings of banker learning: how many draws to learn on, how many bankers in a group.
#pragma once

#include <string_view>

namespace ssq {

struct Session;

// Checks the text of the number of draws (5 to 100) and stores both settings. False when a check
// or the store refused them; the user has been told.
bool SaveLearningSettings(Session& session, std::string_view periodsText, int dmgs);

}  // namespace ssq
