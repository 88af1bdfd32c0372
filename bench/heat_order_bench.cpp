// The heat ranking of the newest draws over all draws before each: eight statements a row against
// one reading of the history. Both write the same grid.
#include <string>

#include "Query.h"
#include "Ratio.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "stats/HeatRanking.h"
#include "store/WriteBatch.h"
#include "support/TestDatabase.h"
#include "ui/Run.h"

namespace {

using ssq::Recordset;
using ssq::Session;

// The heat order of a window by statements, the numbers that never occur at its end.
std::string OrderByStatements(Session& session, const std::string& top, const std::string& window) {
    Query(session, "delete from rtoc");
    for (int ball = 1; ball <= ssq::kRedsInDraw; ++ball) {
        Query(session, "insert into rtoc(colvalue) select  " + top + " a" + std::to_string(ball) +
                           window + " order by kjqh desc");
    }
    std::string order;
    for (Recordset counts = Query(session,
                                  "select colvalue,count(colvalue) from rtoc group by colvalue "
                                  "order by count(colvalue) desc,colvalue");
         !counts.eof(); counts.MoveNext()) {
        order += ssq::TwoDigits(counts.Int(0)) + ",";
    }
    for (int number = 1; number <= ssq::kReds; ++number) {
        if (!ssq::Contains(order, ssq::TwoDigits(number))) order += ssq::TwoDigits(number) + ",";
    }
    return order;
}

// The orders of the rows of the range and of the next draw.
std::string OrdersByStatements(Session& session, const ssq::PeriodRange& range) {
    const ssq::WriteBatch batch(session.host, session.connection);
    const std::string top =
        "top " + Query(session, "select count(kjqh) from cphm where kjqh<" + range.end).Text(0);
    std::string orders;
    for (Recordset draws = Query(session, "select kjqh from cphm where kjqh>=" + range.start +
                                              "  and kjqh<=" + range.end + "  order by kjqh asc");
         !draws.eof(); draws.MoveNext()) {
        orders += OrderByStatements(session, top, " from cphm where kjqh<" + draws.Text(0));
    }
    return orders + OrderByStatements(session, top, " from cphm where kjqh<=" + range.end);
}

std::string OrdersOf(const ssq::ResultGrid& grid) {
    std::string orders;
    for (int row = 1; row < grid.rows() - 1; ++row) {
        for (int col = 2; col < 2 + ssq::kReds; ++col) orders += grid.cell(row, col) + ",";
    }
    return orders;
}

}  // namespace

int main() {
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    Session& session = database.session();
    ssq::Run run(database.host());
    const ssq::PeriodRange newest{"2026055", "2026114"};
    std::string plain;
    std::string fast;
    const auto rank = [&](const ssq::PeriodRange& range) {
        const auto outcome = ssq::BuildHeatRanking(session, {range, ssq::kWholeHistory}, run);
        ssq::RequireEqual(outcome.report && !outcome.failed, "a whole run");
        fast = OrdersOf(outcome.report->grid);
    };
    const double plainSeconds =
        ssq::SecondsOf(1, [&] { plain = OrdersByStatements(session, newest); });
    const double seconds = ssq::SecondsOf(3, [&] { rank(newest); });
    ssq::RequireEqual(plain == fast, "heat orders");
    ssq::PrintRatio("heat ranking of the newest draws over all before", plainSeconds, seconds);
    const double whole = ssq::SecondsOf(3, [&] { rank({"2003001", "2026114"}); });
    std::printf("heat ranking of the whole history: %.3f s\n", whole);
    return 0;
}
