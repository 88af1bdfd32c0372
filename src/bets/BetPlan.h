// The plan of the number filter: what bets are made of and the conditions they have to meet, read
// from a text with one statement a line.
//
//     红球 01-20 22 25 28      the reds bets are made of; without the line all
//     胆码 05                  1 to 5 reds in every bet
//     杀码 13                  reds in no bet
//     蓝球 03,11               every bet is played with each of them
//     容错 2                   so many conditions without ! may fail
//     03,07,12,15/0~1          of these numbers none or one
//     !和值 80~120             an attribute (BetAttributes); ! must hold whatever 容错 says
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/RedSet.h"

namespace ssq {

// Counts and values up to 255; larger ones may be written, but no bet has them.
using BetValues = std::bitset<256>;

struct BetCondition {
    int line = 0;        // counted from 1
    std::string text;    // as typed, without remark
    bool must = false;   // no part of the tolerance
    int attribute = -1;  // index into BetAttributes(); -1 for a list of numbers
    RedSet numbers;      // of the list
    BetValues values;    // the counts, or the values of the attribute, that meet the condition
};

// The statements that are no conditions.
enum class BetStatement { kPool, kBankers, kKilled, kBlues, kTolerance };
inline constexpr std::size_t kBetStatements = 5;

struct BetPlan {
    // The line of each statement, 0 where there is none.
    std::array<int, kBetStatements> lines{};
    RedSet pool;  // all reds without the line
    RedSet bankers;
    RedSet killed;
    std::vector<int> blues;  // ascending
    int tolerance = 0;
    std::vector<BetCondition> conditions;  // in the order of their lines

    // The reds that a bet may hold: the pool less what is killed, and the bankers in any case.
    RedSet Usable() const { return pool.Without(killed) | bankers; }
    // Yuan for so many combinations: two a bet, with each of the blues.
    std::int64_t Cost(std::int64_t combinations) const;
};

enum class BetFault {
    kUnknown,
    kNoCount,
    kNoValue,
    kNumber,
    kValue,
    kOrder,
    kRatio,
    kTolerance,
    kTwice,
    kBankers,
    kConflict,
    kPool
};

struct BetPlanError {
    int line = 0;
    BetFault fault = BetFault::kUnknown;
    std::string text;

    // 第3行：… as the user is told.
    std::string Told() const;
};

struct BetPlanReading {
    BetPlan plan;                      // what could be read
    std::vector<BetPlanError> errors;  // in line order, at most one a line; none: plan is whole
};

BetPlanReading ReadBetPlan(std::string_view text);

}  // namespace ssq
