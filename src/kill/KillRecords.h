// The log of kill learning runs, and the way back to one of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "ui/ResultGrid.h"

namespace ssq {

struct Session;

// A run as it is logged in tSrecord.
struct KillRecord {
    std::string endDate;     // the issue learned up to
    std::int64_t tQs = 0;    // draws learned on
    std::int64_t tDsGs = 0;  // formulas in the set minus 1
    std::int64_t tRcGs = 0;  // tolerance
    double tRate = 0;        // percent
    std::string tGsStr;      // FormulaSet
    std::int64_t tType = 1;  // kill learning
};

// False after showing the store's error text.
bool AddKillRecord(Session& session, const KillRecord& record);

// The newest 250 runs, newest first. Nothing after showing the store's error text or
// "还没有学习记录！".
std::optional<ResultGrid> ReadKillRecords(Session& session);

// Puts the result and the settings of the record with that id back in force. False, with nothing
// changed, after showing "无数据！" (no such record) or the store's error text.
bool RestoreKillRecord(Session& session, std::int64_t id);

}  // namespace ssq
