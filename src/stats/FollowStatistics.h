// How many numbers of each part of a user's list were drawn, draw by draw.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"

namespace ssq {

class Run;

// Whether the text is digits and commas, more or less: with every comma taken for a 0 it is one
// number. Refused with "应该输入数字!".
bool CheckNumberList(Host& host, std::string_view list);

struct FollowRequest {
    PeriodRange range;
    std::string list;  // numbers with commas between; repeated ones count twice
    int partSize = 1;  // 1 to 3 numbers
};

// One row for each draw of the range, one column for each part and one for the whole list, and the
// share of draws that each hit. Nothing for a list without numbers, after "期号填写错误！" or the
// store's error text, and when the run has ended.
std::optional<GridReport> BuildFollowStatistics(Session& session, const FollowRequest& request,
                                                Run& run);

}  // namespace ssq
