// The history as a text file: data/draws.csv, from which the delivered database is made and which
// the gateway serves.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "draws/Draw.h"

namespace ssq {

inline constexpr std::size_t kPrizeLevels = 6;

// A draw as it was published; what is not known is empty.
struct PublishedDraw {
    NewDraw draw;                       // the reds ascending, the date yyyy-mm-dd
    std::optional<std::int64_t> stake;  // yuan
    std::optional<std::int64_t> pool;   // yuan carried into the next draw
    std::array<std::optional<std::int64_t>, kPrizeLevels> tickets;
    std::array<std::optional<std::int64_t>, kPrizeLevels> amounts;  // yuan per ticket
    std::vector<int> sales;  // the 33 reds from the most to the least bought

    bool operator==(const PublishedDraw&) const = default;
};

// Why a line is not served, in Chinese; lines count from 1, the heading's.
struct DrawsCsvFault {
    int line = 0;
    std::string reason;
};

struct DrawsCsv {
    std::vector<PublishedDraw> draws;   // by issue, each one later than the one before
    std::vector<DrawsCsvFault> faults;  // by line
};

inline constexpr std::string_view kDrawsCsvHeading =
    "issue,date,blue,reds,drawn,stake,pool,tickets,amounts";

// Reads the file's bytes: UTF-8 or GBK, with or without byte order mark, any line ends. A heading
// may end with a tenth column, "sales". A line that is not a draw of the game is a fault, and so is
// one that repeats an issue, whose date does not lie behind the draw before, or lies behind
// `latest`.
DrawsCsv ReadDrawsCsv(std::string_view bytes, const std::optional<Date>& latest = {});

// The file of these draws; the column of sales stands in it where any draw has some.
std::string WriteDrawsCsv(std::span<const PublishedDraw> draws);

// Whether every amount is known that a prize notice tells.
bool HasWholeNotice(const PublishedDraw& draw);

}  // namespace ssq
