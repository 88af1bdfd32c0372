// The four updates on pages of any content. The first byte chooses the update; a form feed ends a
// page, and behind the last one the site is silent.
#include <string>
#include <vector>

#include "acquire/BallOrder.h"
#include "acquire/KjData.h"
#include "acquire/Prizes.h"
#include "acquire/Sales.h"
#include "acquire/getWWW.h"
#include "base/RedSet.h"
#include "base/dates.h"
#include "base/text.h"
#include "fuzz/Fuzz.h"
#include "support/TestDatabase.h"
#include "ui/Run.h"

namespace ssq {

namespace {

std::vector<std::string>& Pages() {
    static std::vector<std::string> pages;  // the next one last
    return pages;
}

}  // namespace

// In place of the fetch of a page.
std::optional<FetchedBody> FetchBody(Run&, const std::string&, std::string&, const FetchOptions&) {
    return std::nullopt;
}

std::string FetchPage(Run&, const std::string&, std::string& fault, const FetchOptions&) {
    fault = Pages().empty() ? "没有网页" : "";
    if (Pages().empty()) return {};
    const std::string body = Pages().back();
    Pages().pop_back();
    return DecodePage(body, "");
}

namespace {

// Three draws, the last two without their order; the first one's prizes are known.
void Reset(TestDatabase& database) {
    database.host().boxes.clear();
    for (const char* sql : {"delete from cphm", "delete from cpjc", "delete from o_sale"}) {
        database.Run(sql);
    }
    database.AddDraw(2009001, "2009-01-01", "01,02,03,04,05,06", 7, "06,05,04,03,02,01");
    database.AddDraw(2009002, "2009-01-04", "01,02,03,04,05,06", 7);
    database.AddDraw(2009003, "2009-01-06", "01,02,03,04,05,06", 7);
    database.Run("insert into cpjc(kjqh,xqjc) values(2009001,5)");
    // Not the gateway's address.
    Deployment& hosts = database.session().deployment;
    hosts.resultsHost = hosts.orderHost = hosts.salesHost = "http://site";
}

TestDatabase& Database() {
    static TestDatabase database;
    static const bool quick = [] {
        database.Run("pragma synchronous=off");
        return true;
    }();
    Promise(quick);
    return database;
}

// Whatever came in, a draw is six different numbers, a blue and a date.
void CheckDraws(TestDatabase& database) {
    for (Recordset rows = database.Run("select kjhm,a7,kjdate from cphm"); !rows.eof();
         rows.MoveNext()) {
        const std::string reds = rows.Text(0);  // in the order of the page
        Promise(RedSet::FromList(reds).Count() == 6 && reds.size() == 6 * 2 + 5);
        Promise(rows.Int(1) >= 1 && rows.Int(1) <= 16);
        Promise(ParseDate(rows.Text(2)).has_value());
    }
}

}  // namespace

}  // namespace ssq

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    ssq::TestDatabase& database = ssq::Database();
    ssq::Reset(database);
    std::vector<std::string> pages = ssq::Split(ssq::FuzzText(data + 1, size - 1), "\f");
    ssq::Pages().assign(pages.rbegin(), pages.rend());
    constexpr int kUpdates = 4;
    ssq::Run run(database.host());
    int written = 0;
    switch (data[0] % kUpdates) {
        case 0:
            ssq::UpdateDraws(database.session(), run, written);
            break;
        case 1:
            ssq::UpdatePrizes(database.session(), run, written);
            break;
        case 2:
            ssq::UpdateBallOrder(database.session(), run, written);
            break;
        default:
            ssq::UpdateSales(database.session(), run);
    }
    ssq::CheckDraws(database);
    return 0;
}
