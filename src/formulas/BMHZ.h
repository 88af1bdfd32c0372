// The table BMHZ: for every draw, how many reds each of 130 shifting formulas would have hit.
#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>

#include "base/RedSet.h"

namespace ssq {

struct Draw;
struct Session;

// A shifting formula (Q, B) takes the Q-th draw before a draw (by row order of cphm, 1 = the one
// just before) and lowers each of its reds by B.
inline constexpr int kFormulaDraws = 10;    // Q is 1 to 10
inline constexpr int kFormulaOffsets = 13;  // B is 1 to 13
inline constexpr int kFormulaCount = kFormulaDraws * kFormulaOffsets;

struct ShiftFormula {
    int q = 1;
    int b = 1;
};

// FormulaIndex counts from 0, Q in the outer order and B in the inner one.
constexpr int FormulaIndex(ShiftFormula formula) {
    return (formula.q - 1) * kFormulaOffsets + formula.b - 1;
}
constexpr ShiftFormula FormulaAt(int index) {
    return {index / kFormulaOffsets + 1, index % kFormulaOffsets + 1};
}

// The column name of a formula, such as Q3B12.
std::string FormulaKey(ShiftFormula formula);

// The 130 column names in FormulaIndex order, each followed by `suffix`, joined by commas.
std::string FormulaColumns(const std::string& suffix = {});

// The number lowered by `offset` (0 to 32) in the ring 1..33.
int LoweredInRing(int number, int offset);

enum class ShiftMode { kBoth = 0, kMinus = 1, kPlus = 2 };

// Shifts every number of the comma text `source` by `offset` (0 to 32) in the ring 1..33 and
// returns the two-digit results joined by commas, in source order; in kBoth each number gives its
// minus result and then its plus result. Adds to `hits` the results that occur in `target`, a text
// of two-digit numbers and commas.
std::string ShiftDraw(const std::string& target, const std::string& source, int offset, int& hits,
                      ShiftMode mode);

// The hits that ShiftDraw adds, for draws held as sets.
constexpr int ShiftHits(RedSet target, RedSet source, int offset, ShiftMode mode) {
    int hits = 0;
    if (mode != ShiftMode::kPlus) hits += source.Lowered(offset).CountIn(target);
    if (mode != ShiftMode::kMinus) hits += source.Raised(offset).CountIn(target);
    return hits;
}

// The ten draws before a draw, newest first; moves up draw by draw.
class EarlierDraws {
  public:
    struct Draw {
        std::string text;  // RedList
        RedSet reds;
    };

    // Reads the ten draws before `issue`; false after showing the store's error text.
    bool ReadBefore(Session& session, const std::string& issue);

    // The next draw is the newest earlier one from now on.
    void Push(const std::string& drawText);

    bool full() const { return draws_.size() == kFormulaDraws; }
    // `q` counts from 1; only to be asked while full.
    const Draw& Before(int q) const { return draws_[static_cast<std::size_t>(q - 1)]; }

  private:
    std::deque<Draw> draws_;
};

// Creates the table with its column qid; false after showing the store's error text.
bool CreateEdgeTable(Session& session);

// Inserts the row of the last of the draws given, oldest first. False after showing "数据不足！"
// (fewer than ten earlier draws) or the store's error text.
bool AddEdgeRow(Session& session, std::span<const Draw> upTo);

// Creates the table where it is missing and inserts a row for each draw that has none. False after
// a failure that has been shown, or when the program is being closed; the rows inserted so far
// stay.
bool EnsureEdgeTable(Session& session);

// Leaves qid equal to 1, 2, 3 ... over the rows up to `endIssue` in the order of issues and
// returns their number; 0 after showing the store's error text.
int RenumberEdgeTable(Session& session, const std::string& endIssue);

}  // namespace ssq
