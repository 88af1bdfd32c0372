#include "draws/Draw.h"

#include "base/ConvertYlDate.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"

namespace ssq {

namespace {

constexpr const char* kDraws = "kjqh,kjhm,cqsx,kjDate,a1,a2,a3,a4,a5,a6,a7 from cphm";
constexpr const char* kDrawsInDrawnOrder = "kjqh,kjhm,null,null,a1,a2,a3,a4,a5,a6,a7 from vcphm";
constexpr int kFirstBallField = 4;
constexpr int kBlueField = kFirstBallField + kRedsInDraw;

// What has no two digits is no ball and counts as 0.
int BallOf(std::int64_t number) {
    return number >= 0 && number < 100 ? static_cast<int>(number) : 0;
}

Draw ReadRow(const Recordset& rows) {
    Draw draw;
    draw.issue = rows.Text(0);
    draw.reds = rows.Text(1);
    draw.drawn = rows.Text(2);
    draw.date = rows.Text(3);
    for (int ball = 0; ball < kRedsInDraw; ++ball) {
        draw.balls[static_cast<std::size_t>(ball)] = BallOf(rows.Int(kFirstBallField + ball));
    }
    draw.blue = BallOf(rows.Int(kBlueField));
    draw.set = RedSet::FromList(draw.reds);
    return draw;
}

// `sql` stands behind the word select.
std::optional<std::vector<Draw>> Read(Session& session, const std::string& sql) {
    Recordset rows;
    if (!QueryOrTell(session, "Select " + sql, rows)) return std::nullopt;
    std::vector<Draw> draws;
    draws.reserve(static_cast<std::size_t>(rows.recordcount()));
    for (; !rows.eof(); rows.MoveNext()) draws.push_back(ReadRow(rows));
    return draws;
}

std::optional<std::vector<Draw>> ReadNewest(Session& session, const std::string& comparison,
                                            const std::string& issue, int count) {
    return Read(session, "top " + std::to_string(count) + " " + kDraws + " where kjqh" +
                             comparison + issue + " order by kjqh desc");
}

std::string ConditionOf(const PeriodRange& range) {
    return "kjqh>=" + range.start + " and kjqh<=" + range.end;
}

}  // namespace

DrawBalls BallsOf(std::string_view reds) {
    DrawBalls balls{};
    std::size_t at = 0;
    for (const std::string& item : Split(reds, ",")) {
        if (at < balls.size()) balls[at++] = BallOf(WholePart(item));
    }
    return balls;
}

std::optional<std::vector<Draw>> ReadDraws(Session& session, const PeriodRange& range) {
    return ReadDrawsWhere(session, ConditionOf(range));
}

std::optional<std::vector<Draw>> ReadDrawsWhere(Session& session, const std::string& condition) {
    return Read(session, std::string(kDraws) + " where " + condition + " order by kjqh asc");
}

std::optional<std::vector<Draw>> ReadDrawsInDrawnOrder(Session& session, const PeriodRange& range) {
    return Read(session, std::string(kDrawsInDrawnOrder) + " where " + ConditionOf(range) +
                             " order by kjqh asc");
}

std::optional<std::vector<Draw>> ReadAllDraws(Session& session) {
    return Read(session, std::string(kDraws) + " order by kjqh asc");
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
    const auto date = ParseDate(draw.date);
    if (!date) {
        errorText = draw.date + "不是日期！";
        return false;
    }
    Recordset rows;
    if (!connection.OpenQuery("Select Max(qid) from cphm", {}, errorText, rows)) return false;
    std::vector<std::string> reds;
    Values values{rows.Int(0) + 1, std::int64_t{draw.issue}, std::string()};
    for (const int ball : draw.balls) {
        reds.push_back(TwoDigits(ball));
        values.emplace_back(std::int64_t{ball});
    }
    values[2] = Join(reds, ",");
    values.emplace_back(std::int64_t{draw.blue});
    values.emplace_back(draw.date);
    values.emplace_back(std::int64_t{Weekday(*date)});
    values.emplace_back(WholePart(LunarDay(LunarText(draw.date))));
    if (draw.drawn.empty()) {
        values.emplace_back(std::monostate{});
    } else {
        values.emplace_back(draw.drawn);
    }
    return connection.OpenQuery(
        "Insert into cphm(qid,kjqh,kjhm,a1,a2,a3,a4,a5,a6,a7,kjDate,kjWeek,nnDate,cqsx) "
        "values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
        values, errorText, rows);
}

}  // namespace ssq
