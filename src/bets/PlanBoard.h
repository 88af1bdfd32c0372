// The board of balls beside a plan: what the plan says of a ball, and the plan after a press on it.
#pragma once

#include <string>

#include "bets/BetPlan.h"

namespace ssq {

enum class BallState { kNothing, kBanker, kPool, kKilled };

// What the lines 胆码, 红球 and 杀码 say of a red; nothing where 红球 is not written.
BallState RedState(const BetPlan& plan, int red);

// The text with the red one step further: banker, pool, killed, nothing. Beside five bankers
// (kMostBankers) the step to the banker is left out. Remarks and all other lines stay; a line that
// is not there yet comes behind the last statement. The text is the same when one of the lines to
// be written holds an error, so that nothing typed is lost.
std::string PressRed(const std::string& text, int red);

// The same with a blue: in the line 蓝球 or not.
std::string PressBlue(const std::string& text, int blue);

inline constexpr int kMostBankers = 5;

}  // namespace ssq
