// Online sales: the red numbers of each issue by how much they were bought.
#pragma once

#include <optional>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

struct Session;

// Brings o_sale up to date from the sales site, with all messages; the running issue's row is
// replaced. Stops at the first row that cannot be stored; rows before it stay. Ends without a
// message when the program is being closed.
void UpdateSales(Session& session);

// The sales of a range and of the running issue; without the latter where only that could not be
// read. Nothing after telling the user.
std::optional<GridReport> BuildSalesTable(Session& session, const PeriodRange& range);

}  // namespace ssq
