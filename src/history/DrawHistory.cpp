#include "history/DrawHistory.h"

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/SqlConn.h"
#include "ui/Host.h"
#include "ui/palette.h"

namespace ssq {

namespace {

// Positions in cpInfo.
constexpr int kBlue = 2;
constexpr int kNextPool = 6;
constexpr int kReturnRatio = 8;

// From here on a value is marked: 200 million yuan in the pool, half of the stakes returned.
constexpr double kLargePool = 200'000'000;
constexpr double kLargeRatio = 50;

// A number as it was understood, since the store knows no digit groups.
std::string SqlNumber(std::string_view text) {
    return NumberText(ParseNumber(text).value_or(0));
}

std::string Condition(const std::string& field, const NumberFilter& filter) {
    if (!filter.ticked) return {};
    return " and " + field + ">=" + SqlNumber(filter.from) + " and " + field +
           "<=" + SqlNumber(filter.to);
}

bool CheckFilter(Host& host, const NumberFilter& filter, const std::string& name) {
    return !filter.ticked ||
           CheckNumberRange(host, filter.from, filter.to, "起始" + name, "结束" + name);
}

// The statement for a request whose ticked filters have passed their check.
std::string HistoryQuery(const HistoryRequest& request) {
    return "Select * from cpInfo where 开奖期号>=" + request.range.start +
           " and 开奖期号<=" + request.range.end + Condition("下期奖池", request.pool) +
           Condition("一等注数", request.firstPrizes);
}

void SetUpColumns(const Recordset& draws, ResultGrid& grid) {
    for (int col = 0; col < grid.cols(); ++col) grid.SetCell(0, col, draws.FieldName(col));
    grid.SetColWidths(0, grid.cols() - 1, 1500);
    grid.SetColWidth(0, 900);
    grid.SetColWidth(1, 1800);
    grid.SetColWidth(kBlue, 550);
    grid.SetColWidth(3, 1800);
    grid.SetAllRowHeights(300);
    grid.SetAllAlignments(Align::kCentre);
}

std::string CellText(const Recordset& draws, int col) {
    return col == kBlue && !draws.IsNull(col) ? TwoDigits(draws.Int(col)) : draws.Text(col);
}

// A null marks nothing.
void MarkFrom(const Recordset& draws, int col, double limit, int row, ResultGrid& grid) {
    if (!draws.IsNull(col) && draws.Number(col) >= limit) grid.SetBack(row, col, kSkyMark);
}

}  // namespace

bool CheckNumberRange(Host& host, std::string_view fromText, std::string_view toText,
                      const std::string& fromName, const std::string& toName) {
    const std::string either = fromName + "或" + toName;
    if (Trim(fromText).empty() || Trim(toText).empty()) {
        host.ShowMessage(either + "不能为空！");
        return false;
    }
    if (!IsNumeric(fromText) || !IsNumeric(toText)) {
        host.ShowMessage(either + "必须为数字！");
        return false;
    }
    if (WholePart(fromText) > WholePart(toText)) {
        host.ShowMessage(fromName + "不能大于" + toName + "！");
        return false;
    }
    return true;
}

ResultGrid HistoryGrid(Recordset& draws) {
    ResultGrid grid(draws.recordcount() + 1, draws.FieldCount(), 1, 3);
    SetUpColumns(draws, grid);
    for (int row = 1; !draws.eof(); ++row, draws.MoveNext()) {
        for (int col = 0; col < grid.cols(); ++col) grid.SetCell(row, col, CellText(draws, col));
        MarkFrom(draws, kNextPool, kLargePool, row, grid);
        MarkFrom(draws, kReturnRatio, kLargeRatio, row, grid);
    }
    return grid;
}

std::optional<GridReport> BuildHistory(Session& session, const HistoryRequest& request) {
    Recordset draws;
    if (!CheckFilter(session.host, request.pool, "奖池额") ||
        !CheckFilter(session.host, request.firstPrizes, "一等注数") ||
        !CheckPeriod(session, request.range) ||
        !QueryOrTell(session, HistoryQuery(request), draws)) {
        return std::nullopt;
    }
    return GridReport{HistoryGrid(draws), {}};
}

}  // namespace ssq
