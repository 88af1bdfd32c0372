#include "acquire/BallOrder.h"

#include <optional>
#include <string>
#include <vector>

#include "acquire/getWWW.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

// Two cells stand in front of the six balls.
constexpr std::size_t kFirstBall = 2;
constexpr std::size_t kLastBall = 7;
constexpr std::size_t kOrderLength = 17;  // six two-digit numbers and five commas

// The order as the page of the issue has it, unchecked; empty where the page has no table, nothing
// when its row is too short.
std::optional<std::string> ReadOrder(Session& session, const std::string& issue) {
    Host& host = session.host;
    const std::string page = WithoutBlanks(
        FetchPage(host, session.deployment.orderHost +
                            "/trend/analysessq.do?operator=outball&type=draw&drawBegin=" + issue +
                            "&drawEnd=" + issue));
    const std::string row = CutBetween(host, "蓝球号码</td>", "</table>", page);
    if (row.empty()) return row;
    const std::vector<std::string> cells = Split(row, "</td>");
    if (cells.size() <= kLastBall) return std::nullopt;
    std::vector<std::string> balls;
    for (std::size_t i = kFirstBall; i <= kLastBall; ++i) {
        balls.push_back(CutBetween(host, ">", "<", cells[i] + "<"));
    }
    return Join(balls, ",");
}

// False when a second update, started between two issues of this one, has gone on from here.
bool IsMissing(Session& session, const std::string& issue) {
    Recordset rows;
    return QueryOrTell(session, "Select kjqh from cphm where cqsx is null and kjqh=" + issue,
                       rows) &&
           !rows.eof();
}

}  // namespace

int UpdateBallOrder(Session& session) {
    std::string errorText;
    Recordset issues;
    if (!session.connection.OpenQuery("Select kjqh from cphm where cqsx is null", errorText,
                                      issues)) {
        return 0;
    }
    if (issues.eof()) {
        session.host.ShowMessage("已经是最新，无需更新！");
        return 0;
    }
    int count = 0;
    for (; !issues.eof(); issues.MoveNext()) {
        const std::string issue = issues.Text(0);
        if (count > 0 && !IsMissing(session, issue)) return count;
        const auto order = ReadOrder(session, issue);
        if (!order) {
            session.host.ShowMessage("无数据，请稍候再试！");
            return count;
        }
        if (CharacterCount(*order) != kOrderLength) {
            session.host.ShowMessage(Excerpt(*order) + "格式不正确！");
            return count;
        }
        if (!ExecuteOrTell(session, "update cphm set cqsx=? where kjqh=?",
                           {*order, WholePart(issue)})) {
            return count;
        }
        ++count;
        if (!session.host.YieldNow()) return count;
    }
    session.host.ShowMessage("共更新" + std::to_string(count) + "期！");
    return count;
}

}  // namespace ssq
