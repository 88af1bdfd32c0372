// The draws: the one way to read them and the one way to write them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RedSet.h"
#include "draws/public_fun.h"

namespace ssq {

class Connection;
struct Session;

// The game: six reds of 33 and one blue of 16.
inline constexpr int kReds = RedSet::kLargest;
inline constexpr int kBlues = 16;
inline constexpr int kRedsInDraw = 6;

// Five zones of the numbers 1 to 33, of seven numbers each but the last, which has five; 0 for
// what is no number of them.
constexpr int NumberZone(int number) {
    constexpr int kZoneWidth = 7;
    return number >= 1 && number <= kReds ? (number - 1) / kZoneWidth + 1 : 0;
}
inline constexpr int kNumberZones = 5;

// The reds of a draw as numbers, in the order of their source.
using DrawBalls = std::array<int, kRedsInDraw>;

// The numbers of a RedList in the order of the text; 0 behind its end and for what is no number
// from 0 to 99.
DrawBalls BallsOf(std::string_view reds);

// A row of cphm.
struct Draw {
    std::string issue;  // YYYYNNN
    std::string date;   // as stored
    std::string reds;   // kjhm: two digits each, ascending, commas between
    std::string drawn;  // cqsx: the same in drawn order; empty while unknown
    DrawBalls balls{};  // a1 to a6
    int blue = 0;       // a7
    RedSet set;         // of kjhm

    bool Has(int red) const { return set.Has(red); }
};

// The draws of the range, oldest first; nothing after showing the store's error text.
std::optional<std::vector<Draw>> ReadDraws(Session& session, const PeriodRange& range);

// The draws for which a condition of the store's dialect holds, oldest first.
std::optional<std::vector<Draw>> ReadDrawsWhere(Session& session, const std::string& condition);

// The draws of the range with their balls in drawn order, in the order of the source where that is
// not known; without date and drawn text.
std::optional<std::vector<Draw>> ReadDrawsInDrawnOrder(Session& session, const PeriodRange& range);

// All draws, oldest first.
std::optional<std::vector<Draw>> ReadAllDraws(Session& session);

// Up to `count` draws before the issue (up to the issue, itself included), newest first.
std::optional<std::vector<Draw>> ReadDrawsBefore(Session& session, const std::string& issue,
                                                 int count);
std::optional<std::vector<Draw>> ReadDrawsUpTo(Session& session, const std::string& issue,
                                               int count);

// What a source tells of a new draw.
struct NewDraw {
    std::int32_t issue = 0;
    std::string date;  // year, month and day with "-" between, a real date
    DrawBalls balls{};
    int blue = 0;
    std::string drawn;  // 17 characters; empty while unknown

    bool operator==(const NewDraw&) const = default;
};

// Appends a row to cphm: the next qid, kjhm in the order of the source, weekday and lunar day by
// the date. False with the store's text; nothing is shown.
bool InsertDraw(Connection& connection, const NewDraw& draw, std::string& errorText);

}  // namespace ssq
