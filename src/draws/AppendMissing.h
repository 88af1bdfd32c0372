// Tables derived from the draws, brought level with them.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "draws/Draw.h"

namespace ssq {

// Inserts the row of the last of the draws given, which are all up to that one, oldest first: a
// rule that looks back finds the draw before it at `upTo.size() - 2`. False ends the work; the
// user has been told why.
using AppendRow = std::function<bool(std::span<const Draw> upTo)>;

// Calls `append` for each draw behind issue `after` (0 for all) whose issue the column kjqh of
// `table` lacks, in the order of issues; rows that lack in the middle are found, too. Yields before
// each row. False after a failure, which has been shown, or when the program is being closed; the
// rows inserted so far stay.
//   AppendMissing(session, "hezitj", 0, [&](std::span<const Draw> upTo) {
//       return ExecuteOrTell(session, kInsertSums, SumsOf(upTo.back()));
//   });
bool AppendMissing(Session& session, const std::string& table, std::int64_t after,
                   const AppendRow& append);

}  // namespace ssq
