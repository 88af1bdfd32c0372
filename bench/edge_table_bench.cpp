// The edge-code table of the whole history: ten rows asked for per draw and 130 shifted texts
// against one reading, masks and a bound insert. Both write the same table.
#include <string>
#include <vector>

#include "Query.h"
#include "Ratio.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "formulas/BMHZ.h"
#include "store/WriteBatch.h"
#include "support/TestDatabase.h"

namespace {

using ssq::Recordset;
using ssq::Session;

void AddRowByTexts(Session& session, const std::string& issue, const std::string& drawText) {
    Recordset rows = Query(
        session, "Select top 10 kjhm,kjqh from cphm where kjqh<" + issue + " order by kjqh desc");
    std::vector<std::string> earlier;
    for (; !rows.eof(); rows.MoveNext()) earlier.push_back(rows.Text("kjhm"));
    std::string columns;
    std::string values;
    for (int index = 0; index < ssq::kFormulaCount; ++index) {
        const ssq::ShiftFormula formula = ssq::FormulaAt(index);
        int hits = 0;
        ssq::ShiftDraw(drawText, earlier[static_cast<std::size_t>(formula.q - 1)], formula.b, hits,
                       ssq::ShiftMode::kMinus);
        columns += "," + ssq::FormulaKey(formula);
        values += "," + std::to_string(hits);
    }
    Query(session, "Insert into BMHZ(kjqh,kjhm" + columns + ") values(" + issue + ",'" + drawText +
                       "'" + values + ")");
}

void FillByTexts(Session& session) {
    ssq::CreateEdgeTable(session);
    const ssq::WriteBatch batch(session.host, session.connection);
    Recordset draws =
        Query(session, "Select kjqh,kjhm from cphm where kjqh>2003011 order by kjqh asc");
    for (; !draws.eof(); draws.MoveNext()) {
        AddRowByTexts(session, draws.Text("kjqh"), draws.Text("kjhm"));
    }
}

std::vector<std::string> Table(Session& session) {
    std::vector<std::string> texts;
    for (Recordset rows = Query(session, "select * from bmhz order by kjqh asc"); !rows.eof();
         rows.MoveNext()) {
        for (int field = 0; field < rows.FieldCount(); ++field) texts.push_back(rows.Text(field));
    }
    return texts;
}

}  // namespace

int main() {
    ssq::TestDatabase plain = ssq::TestDatabase::Delivered();
    ssq::TestDatabase fast = ssq::TestDatabase::Delivered();
    const double plainSeconds = ssq::SecondsOf(1, [&] { FillByTexts(plain.session()); });
    const double seconds = ssq::SecondsOf(1, [&] { ssq::EnsureEdgeTable(fast.session()); });
    ssq::RequireEqual(Table(plain.session()) == Table(fast.session()), "edge-code table");
    ssq::PrintRatio("edge-code table of the whole history", plainSeconds, seconds);
    return 0;
}
