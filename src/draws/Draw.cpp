#include "draws/Draw.h"

#include "base/ConvertYlDate.h"
#include "base/dates.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"

namespace ssq {

namespace {

constexpr const char* kFields = "kjqh,kjhm,cqsx,kjDate,a1,a2,a3,a4,a5,a6,a7";
constexpr int kFirstBallField = 4;
constexpr int kBlueField = kFirstBallField + kRedsInDraw;

Draw ReadRow(const Recordset& rows) {
    Draw draw;
    draw.issue = rows.Text(0);
    draw.reds = rows.Text(1);
    draw.drawn = rows.Text(2);
    draw.date = rows.Text(3);
    for (int ball = 0; ball < kRedsInDraw; ++ball) {
        draw.balls[static_cast<std::size_t>(ball)] =
            static_cast<int>(rows.Int(kFirstBallField + ball));
    }
    draw.blue = static_cast<int>(rows.Int(kBlueField));
    draw.set = RedSet::FromList(draw.reds);
    return draw;
}

// `top` and `rest` stand before and behind the fields of the select.
std::optional<std::vector<Draw>> Read(Session& session, const std::string& top,
                                      const std::string& rest) {
    Recordset rows;
    if (!QueryOrTell(session, "Select " + top + kFields + " from cphm" + rest, rows)) {
        return std::nullopt;
    }
    std::vector<Draw> draws;
    draws.reserve(static_cast<std::size_t>(rows.recordcount()));
    for (; !rows.eof(); rows.MoveNext()) draws.push_back(ReadRow(rows));
    return draws;
}

std::optional<std::vector<Draw>> ReadNewest(Session& session, const std::string& comparison,
                                            const std::string& issue, int count) {
    return Read(session, "top " + std::to_string(count) + " ",
                " where kjqh" + comparison + issue + " order by kjqh desc");
}

}  // namespace

std::optional<std::vector<Draw>> ReadDraws(Session& session, const PeriodRange& range) {
    return Read(session, {},
                " where kjqh>=" + range.start + " and kjqh<=" + range.end + " order by kjqh asc");
}

std::optional<std::vector<Draw>> ReadAllDraws(Session& session) {
    return Read(session, {}, " order by kjqh asc");
}

std::optional<std::vector<Draw>> ReadDrawsBefore(Session& session, const std::string& issue,
                                                 int count) {
    return ReadNewest(session, "<", issue, count);
}

std::optional<std::vector<Draw>> ReadDrawsUpTo(Session& session, const std::string& issue,
                                               int count) {
    return ReadNewest(session, "<=", issue, count);
}

bool InsertDraw(Connection& connection, const NewDraw& draw, std::string& errorText) {
    Recordset newest;
    if (!connection.OpenQuery("Select Max(qid) from cphm", errorText, newest)) return false;
    const auto date = ParseDate(draw.date);
    if (!date) {
        errorText = draw.date + "不是日期！";
        return false;
    }
    std::vector<std::string> reds;
    std::string balls;
    for (const int ball : draw.balls) {
        reds.push_back(TwoDigits(ball));
        balls += std::to_string(ball) + ",";
    }
    const std::string drawn = draw.drawn.empty() ? "null" : "'" + draw.drawn + "'";
    Recordset nothing;
    return connection.OpenQuery(
        "Insert into cphm(qid,kjqh,kjhm,a1,a2,a3,a4,a5,a6,a7,kjDate,kjWeek,nnDate,cqsx) values(" +
            std::to_string(newest.Int(0) + 1) + "," + std::to_string(draw.issue) + ",'" +
            Join(reds, ",") + "'," + balls + std::to_string(draw.blue) + ",'" + draw.date + "'," +
            std::to_string(Weekday(*date)) + "," + LunarDay(LunarText(draw.date)) + "," + drawn +
            ")",
        errorText, nothing);
}

}  // namespace ssq
