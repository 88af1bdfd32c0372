#include "formulas/BMHZ.h"

#include <cstdlib>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"

namespace ssq {

namespace {

// The last issue that has fewer than ten draws before it.
constexpr const char* kLastWithoutTen = "2003011";

int LoweredInRing(int number, int offset) {
    const int lowered = number - offset;
    return lowered < 1 ? RedSet::kLargest - std::abs(lowered) : lowered;
}

int RaisedInRing(int number, int offset) {
    const int raised = number + offset;
    return raised > RedSet::kLargest ? raised - RedSet::kLargest : raised;
}

// The newest issue of the table; 0 while it is empty, negative after a failure that was shown.
std::int64_t LastEdgeIssue(Session& session) {
    Recordset rows;
    if (!QueryOrTell(session, "Select max(kjqh) from bmhz ", rows)) return -1;
    return rows.eof() ? 0 : rows.Int(0);
}

// Appends the rows of the draws in `missing`, oldest first. Another run can have appended rows
// whenever the event loop had control, so each step asks how far the table has come.
bool AppendEdgeRows(Session& session, Recordset& missing) {
    EarlierDraws earlier;
    if (!missing.eof() && !earlier.ReadBefore(session, missing.Text("kjqh"))) return false;
    WriteBatch batch(session.host, session.connection);
    for (; !missing.eof(); missing.MoveNext()) {
        if (!session.host.Yield()) return false;
        const std::int64_t last = LastEdgeIssue(session);
        if (last < 0) return false;
        const std::string drawText = missing.Text("kjhm");
        if (missing.Int("kjqh") > last &&
            !AddEdgeRow(session, missing.Text("kjqh"), drawText, earlier)) {
            return false;
        }
        earlier.Push(drawText);
    }
    return true;
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

std::string ShiftDraw(const std::string& target, const std::string& source, int offset, int& hits,
                      ShiftMode mode) {
    std::vector<std::string> shifted;
    const auto add = [&](int number) {
        shifted.push_back(TwoDigits(number));
        if (Contains(target, shifted.back())) ++hits;
    };
    for (const std::string& item : Split(source, ",")) {
        const int number = static_cast<int>(WholePart(item));
        if (mode != ShiftMode::kPlus) add(LoweredInRing(number, offset));
        if (mode != ShiftMode::kMinus) add(RaisedInRing(number, offset));
    }
    return Join(shifted, ",");
}

bool EarlierDraws::ReadBefore(Session& session, const std::string& issue) {
    draws_.clear();
    Recordset rows;
    if (!QueryOrTell(
            session,
            "Select top 10 kjhm,kjqh from cphm where kjqh<" + issue + " order by kjqh desc",
            rows)) {
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

bool AddEdgeRow(Session& session, const std::string& issue, const std::string& drawText,
                const EarlierDraws& earlier) {
    if (!earlier.full()) {
        session.host.ShowMessage("数据不足！");
        return false;
    }
    static const std::string kColumns = FormulaColumns();
    const RedSet target = RedSet::FromList(drawText);
    std::string sql =
        "Insert into BMHZ(kjqh,kjhm," + kColumns + ") values(" + issue + ",'" + drawText + "'";
    for (int index = 0; index < kFormulaCount; ++index) {
        const ShiftFormula formula = FormulaAt(index);
        const RedSet source = earlier.Before(formula.q).reds;
        sql += ',';
        sql += std::to_string(ShiftHits(target, source, formula.b, ShiftMode::kMinus));
    }
    return ExecuteOrTell(session, sql + ")");
}

bool EnsureEdgeTable(Session& session) {
    if (!TableExists(session, "BMHZ") && !CreateEdgeTable(session)) return false;
    const std::int64_t last = LastEdgeIssue(session);
    if (last < 0) return false;
    Recordset missing;
    return QueryOrTell(session,
                       "Select kjqh,kjhm from cphm where kjqh>" + std::to_string(last) +
                           " and  kjqh>" + kLastWithoutTen + " order by kjqh asc",
                       missing) &&
           AppendEdgeRows(session, missing);
}

int RenumberEdgeTable(Session& session, const std::string& endIssue) {
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select kjqh,qid from bmhz where kjqh<=" + endIssue + " order by kjqh asc",
                     rows)) {
        return 0;
    }
    WriteBatch batch(session.host, session.connection);
    for (int position = 1; !rows.eof(); rows.MoveNext(), ++position) {
        if (rows.Int("qid") == position) continue;
        if (!ExecuteOrTell(session, "Update bmhz set qid=" + std::to_string(position) +
                                        "  where kjqh=" + rows.Text("kjqh"))) {
            return 0;
        }
    }
    return rows.recordcount();
}

}  // namespace ssq
