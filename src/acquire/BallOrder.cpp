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
std::optional<std::string> ReadOrder(Host& host, const std::string& page) {
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

IssueEnd StoreOrder(Session& session, const std::string& issue, const std::string& page) {
    const auto order = ReadOrder(session.host, page);
    if (!order) return IssueEnd::kNotPublished;
    if (CharacterCount(*order) != kOrderLength) {
        session.host.ShowMessage(*order + "格式不正确！");
        return IssueEnd::kFault;
    }
    return ExecuteOrTell(session, "update cphm set cqsx=? where kjqh=?", {*order, WholePart(issue)})
               ? IssueEnd::kWritten
               : IssueEnd::kFault;
}

}  // namespace

UpdateResult UpdateBallOrder(Session& session, Run& run, int& written) {
    static const IssueUpdate kOrder{
        .name = "出球顺序",
        .pending = "Select kjqh from cphm where cqsx is null",
        .query =
            [](const std::string& issue) {
                return "/trend/analysessq.do?operator=outball&type=draw&drawBegin=" + issue +
                       "&drawEnd=" + issue;
            },
        .store = StoreOrder,
        .notPublished = "无数据，请稍候再试！",
        .latest = "已经是最新，无需更新！",
        .tellsOfQuery = false,
    };
    return UpdateIssues(session, run, session.deployment.orderHost, kOrder, written);
}

}  // namespace ssq
