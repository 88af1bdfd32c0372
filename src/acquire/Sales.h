// Online sales: the red numbers of each issue by how much they were bought.
#pragma once

#include <optional>

#include "acquire/Update.h"
#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

// Brings o_sale up to date from the sales site, with all messages but the closing one; the running
// issue's row is replaced. Stops at the first row that cannot be stored; rows before it stay.
UpdateResult UpdateSales(Session& session, Run& run);

// The sales of a range and of the running issue; without the latter where only that could not be
// read. Nothing after telling the user.
std::optional<GridReport> BuildSalesTable(Session& session, const PeriodRange& range);

}  // namespace ssq
