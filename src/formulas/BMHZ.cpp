#include "formulas/BMHZ.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/AppendMissing.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"

namespace ssq {

namespace {

// The last issue that has fewer than ten draws before it.
constexpr std::int64_t kLastWithoutTen = 2003011;

int RaisedInRing(int number, int offset) {
    const int raised = number + offset;
    return raised > RedSet::kLargest ? raised - RedSet::kLargest : raised;
}

std::string InsertStatement() {
    std::string marks = "?,?";
    for (int index = 0; index < kFormulaCount; ++index) marks += ",?";
    return "Insert into BMHZ(kjqh,kjhm," + FormulaColumns() + ") values(" + marks + ")";
}

}  // namespace

std::string FormulaKey(ShiftFormula formula) {
    std::string key = "Q";
    key += std::to_string(formula.q);
    key += 'B';
    key += std::to_string(formula.b);
    return key;
}

std::string FormulaColumns(const std::string& suffix) {
    std::vector<std::string> columns;
    columns.reserve(kFormulaCount);
    for (int index = 0; index < kFormulaCount; ++index) {
        columns.push_back(FormulaKey(FormulaAt(index)) + suffix);
    }
    return Join(columns, ",");
}

int LoweredInRing(int number, int offset) {
    const int lowered = number - offset;
    return lowered < 1 ? RedSet::kLargest - std::abs(lowered) : lowered;
}

std::string ShiftDraw(const std::string& target, const std::string& source, int offset, int& hits,
                      ShiftMode mode) {
    std::vector<std::string> shifted;
    const auto add = [&](int number) {
        shifted.push_back(TwoDigits(number));
        if (Contains(target, shifted.back())) ++hits;
    };
    for (const std::string& item : Split(source, ",")) {
        // Stored text may hold anything; no sum may overflow.
        const auto number = static_cast<int>(std::clamp<std::int64_t>(WholePart(item), -999, 999));
        if (mode != ShiftMode::kPlus) add(LoweredInRing(number, offset));
        if (mode != ShiftMode::kMinus) add(RaisedInRing(number, offset));
    }
    return Join(shifted, ",");
}

bool EarlierDraws::ReadBefore(Session& session, const std::string& issue) {
    draws_.clear();
    Recordset rows;
    if (!QueryOrTell(session, "Select top 10 kjhm,kjqh from cphm where kjqh<? order by kjqh desc",
                     {issue}, rows)) {
        return false;
    }
    for (; !rows.eof(); rows.MoveNext()) {
        const std::string text = rows.Text("kjhm");
        draws_.push_back({text, RedSet::FromList(text)});
    }
    return true;
}

void EarlierDraws::Push(const std::string& drawText) {
    draws_.push_front({drawText, RedSet::FromList(drawText)});
    if (draws_.size() > kFormulaDraws) draws_.pop_back();
}

bool CreateEdgeTable(Session& session) {
    WriteBatch batch(session.host, session.connection);
    // The default lets a row that has not been numbered yet differ from every position.
    return ExecuteOrTell(session, "CREATE TABLE BMHZ(kjqh integer PRIMARY KEY ,kjhm char(50)," +
                                      FormulaColumns(" integer ") + ")") &&
           ExecuteOrTell(session, "ALTER TABLE BMHZ ADD COLUMN qid integer DEFAULT 0") &&
           CommitOrTell(session, batch);
}

bool AddEdgeRow(Session& session, std::span<const Draw> upTo) {
    if (upTo.size() <= kFormulaDraws) {
        session.host.ShowMessage("数据不足！");
        return false;
    }
    static const std::string kInsert = InsertStatement();
    const Draw& draw = upTo.back();
    Values values = {draw.issue, draw.reds};
    values.reserve(values.size() + kFormulaCount);
    for (int q = 1; q <= kFormulaDraws; ++q) {
        const RedSet source = upTo[upTo.size() - 1 - static_cast<std::size_t>(q)].set;
        for (int b = 1; b <= kFormulaOffsets; ++b) {
            values.emplace_back(ShiftHits(draw.set, source, b, ShiftMode::kMinus));
        }
    }
    return ExecuteOrTell(session, kInsert, values);
}

bool EnsureEdgeTable(Session& session) {
    if (!TableExists(session, "BMHZ") && !CreateEdgeTable(session)) return false;
    return AppendMissing(session, "BMHZ", kLastWithoutTen,
                         [&](std::span<const Draw> upTo) { return AddEdgeRow(session, upTo); });
}

int RenumberEdgeTable(Session& session, const std::string& endIssue) {
    const std::string places =
        "(select kjqh as issue,qid as old,row_number() over (order by kjqh) as place "
        "from bmhz where kjqh<=?)";
    Recordset rows;
    if (!QueryOrTell(session, "Select count(*),sum(old is not place) from " + places, {endIssue},
                     rows)) {
        return 0;
    }
    const bool inPlace = rows.Int(1) == 0;
    if (!inPlace && !ExecuteOrTell(session,
                                   "Update bmhz set qid=place from " + places +
                                       " where kjqh=issue and old is not place",
                                   {endIssue})) {
        return 0;
    }
    return static_cast<int>(rows.Int(0));
}

}  // namespace ssq
