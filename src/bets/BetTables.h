// What the panel shows of a plan and its bets, and the bets as texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/RedSet.h"
#include "bets/BetCheck.h"
#include "bets/BetPlan.h"
#include "ui/ResultGrid.h"

namespace ssq {

struct Draw;

// One row a condition: line, text, candidates that meet it by itself. An empty plan has headings
// only, here and below.
ResultGrid ConditionTable(const BetPlan& plan, std::span<const std::int32_t> meeting);

// A page of bets, `first` being the running number of its first one: the reds, then the values of
// the attributes that the plan asks for and of those that every player looks at.
ResultGrid BetPageTable(const BetPlan& plan, std::span<const std::uint32_t> places,
                        std::size_t first, RedSet previous);

// One row a draw, oldest first, with the lines it failed, those of 红球, 胆码 and 杀码 included; in
// the last row the share of draws that passed beside the share of all combinations that remain.
// `draws` are those that `history` tells of.
ResultGrid HistoryTable(const BetPlan& plan, std::span<const Draw> draws, const BetHistory& history,
                        std::int32_t remaining);

// The bets in the order given, one combination a line ("\r\n") with all blues of the plan behind
// it: 01,02,03,04,05,06+03,11; as CSV a column for each red and one for the blues ("03 11"), in
// UTF-8 with the mark by which spreadsheets know it.
std::string BetsAsText(std::span<const std::uint32_t> places, const std::vector<int>& blues);
std::string BetsAsCsv(std::span<const std::uint32_t> places, const std::vector<int>& blues);

}  // namespace ssq
