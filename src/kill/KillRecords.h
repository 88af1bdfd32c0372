// The log of kill learning runs, and the way back to one of them.
#pragma once

#include <string>

#include "ui/ResultGrid.h"

namespace ssq {

struct Session;

// The newest 250 runs, newest first. False, with the grid untouched, after showing the store's
// error text or "还没有学习记录！".
bool ReadKillRecords(Session& session, ResultGrid& grid);

// Puts the result and the settings of the record with that id back in force. False after showing
// "无数据！" (no such record) or the text of the statement that failed.
bool RestoreKillRecord(Session& session, const std::string& id);

}  // namespace ssq
