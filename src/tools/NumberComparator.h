// A user's numbers against all draws.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RedSet.h"

namespace ssq {

struct Draw;
struct Session;

// The red numbers of a text, separated by blanks or commas. Nothing when an item is not from 1 to
// 33; one between two separators is none, but for a run of blanks.
std::optional<RedSet> ReadNumbers(std::string_view text);

// The draws that the numbers would have caught so many reds of, oldest first: issue, two blanks,
// reds.
struct CaughtDraws {
    std::vector<std::string> six;
    std::vector<std::string> five;
    std::vector<std::string> four;
};

CaughtDraws CompareNumbers(RedSet numbers, const std::vector<Draw>& draws);

// ReadNumbers and CompareNumbers over the whole history; nothing after a message.
std::optional<CaughtDraws> CompareWithHistory(Session& session, std::string_view text);

}  // namespace ssq
