// Statements of the benchmarks' literal forms.
#pragma once

#include <string>

#include "Ratio.h"
#include "draws/queries.h"

namespace ssq {

// The rows of a statement; one that fails ends the benchmark as failed.
inline Recordset Query(Session& session, const std::string& sql) {
    Recordset rows;
    RequireEqual(QueryOrTell(session, sql, rows), sql);
    return rows;
}

}  // namespace ssq
