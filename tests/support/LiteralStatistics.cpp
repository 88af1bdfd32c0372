#include "support/LiteralStatistics.h"

#include <cstdlib>
#include <stdexcept>

#include "app/Public_var.h"
#include "app/numbers.h"
#include "app/text.h"
#include "kill/BMHZ.h"

namespace ssq {

namespace {

Recordset Query(Session& session, const std::string& sql) {
    Recordset rows;
    std::string errorText;
    if (!session.connection.OpenQuery(sql, errorText, rows)) throw std::runtime_error(errorText);
    return rows;
}

std::string QueryOf(const std::string& key, const std::string& condition,
                    const std::string& endIssue) {
    return "Select kjqh,qid, " + key + ",Q1B1 from BMHZ where " + key + condition +
           " and kjqh<=" + endIssue + " order by kjqh asc";
}

std::string Lowered(const std::string& draw, int offset) {
    std::vector<std::string> numbers;
    for (const std::string& item : Split(draw, ",")) {
        const int number = std::stoi(item) - offset;
        numbers.push_back(TwoDigits(number < 1 ? 33 + number : number));
    }
    return Join(numbers, ",");
}

std::string DrawnAmong(const std::string& nextDraw, const std::string& numbers) {
    if (nextDraw.empty()) return "未开奖";
    int drawn = 0;
    for (const std::string& number : Split(numbers, ",")) drawn += Contains(nextDraw, number);
    return std::to_string(drawn);
}

}  // namespace

std::vector<std::vector<std::string>> LiteralStatistics(Session& session,
                                                        const std::string& condition,
                                                        const std::string& endIssue,
                                                        const std::string& nextDraw) {
    std::vector<std::string> draws;
    Recordset newest =
        Query(session, "Select top 10 * from cphm where kjqh<=" + endIssue + " order by kjqh desc");
    for (; !newest.eof(); newest.MoveNext()) draws.push_back(newest.Text("kjhm"));
    const int total = static_cast<int>(
        Query(session, "select count(*) from bmhz where kjqh<=" + endIssue).Int(0));

    std::vector<std::vector<std::string>> listed;
    for (const std::string& key : Split(FormulaColumns(), ",")) {
        const auto middle = key.find('B');
        const int q = std::stoi(key.substr(1, middle - 1));
        const int b = std::stoi(key.substr(middle + 1));
        Recordset rows = Query(session, QueryOf(key, condition, endIssue));
        if (rows.eof()) continue;
        int maxRun = 0;
        int maxGap = 0;
        int lastQid = 0;
        int run = 0;
        for (; !rows.eof(); rows.MoveNext()) {
            const int qid = static_cast<int>(rows.Int("qid"));
            if (qid - lastQid == 1) {
                if (++run > maxRun) maxRun = run;
            } else {
                if (qid - lastQid - 1 > maxGap) maxGap = qid - lastQid - 1;
                run = 1;
            }
            lastQid = qid;
        }
        if (total - lastQid >= 1) run = 0;
        const std::string numbers = Lowered(draws[static_cast<std::size_t>(q - 1)], b);
        listed.push_back({key, std::to_string(rows.recordcount()),
                          NumberText(Percent(rows.recordcount(), total)), std::to_string(maxRun),
                          std::to_string(maxGap), std::to_string(run),
                          std::to_string(std::abs(total - lastQid)), numbers,
                          DrawnAmong(nextDraw, numbers)});
    }
    return listed;
}

}  // namespace ssq
