// The draws of a range with their prize details, as the view cpInfo gives them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

class Host;
class Recordset;
struct Session;

// A filter as its controls hold it.
struct NumberFilter {
    bool ticked = false;
    std::string from;
    std::string to;
};

struct HistoryRequest {
    PeriodRange range;
    NumberFilter pool;         // yuan carried into the next draw
    NumberFilter firstPrizes;  // winning tickets of the first prize
};

// Whether both texts are numbers and the whole part of `fromText` is not above that of `toText`;
// tells the user by the fields' names when not.
bool CheckNumberRange(Host& host, std::string_view fromText, std::string_view toText,
                      const std::string& fromName, const std::string& toName);

// One row to a draw, the columns those of the query.
ResultGrid HistoryGrid(Recordset& draws);

// Checks the request and runs it; nothing after telling the user why not.
std::optional<GridReport> BuildHistory(Session& session, const HistoryRequest& request);

}  // namespace ssq
