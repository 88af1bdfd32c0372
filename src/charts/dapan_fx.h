// Calculators of draw patterns: how the reds of a draw lie among themselves and against the draws
// shown above it. Pure functions on sets; each count is one column of a trend chart.
//
// `cur` is the current draw: a RedSet where only membership matters, a RedSequence where the order
// of the numbers does. P1 to P4 are the draws one to four rows above; an empty set stands for a
// neighbour that does not exist. Nothing wraps around: 1 has no lower neighbour and 33 no upper.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/RedSet.h"

namespace ssq {

// Numbers in the order of their list.
using RedSequence = std::span<const int>;

// Numbers with a number of P1 exactly 1, 2 or 3 beside them; each number scores once per result.
void CountEdges(RedSet cur, RedSet P1, int& edge1, int& edge2, int& edge3);

// Numbers that come back after being absent for one, two or three draws.
void CountSkips(RedSet cur, RedSet P1, RedSet P2, RedSet P3, RedSet P4, int& skip1, int& skip2,
                int& skip3);

// `rowSkip`: pairs of the draw two apart with the number between them absent. `repeats`: numbers
// that are in P1.
void CountRowSkipsAndRepeats(RedSequence cur, RedSet P1, int& rowSkip, int& repeats);

// Adjacent positions whose numbers differ by exactly 1, and by exactly 2.
int CountGap1(RedSequence list);
int CountGap2(RedSequence list);

// Adjacent differences that occurred before in the list; differences of 1 and 2 are passed over.
int CountEqualGaps(RedSequence list);

// Pairs that are each other's digits reversed, such as 12 and 21.
int CountMirrorPairs(RedSet cur);

// Ends of a slant through three rows, x+1 x+2 or x-1 x-2; a number with both scores 2.
int CountSlant3(RedSet cur, RedSet P1, RedSet P2);

// `groups`: different tail digits of the draw.
void CountTailGroups(RedSet cur, int& groups);

// `repeatTails`: different tail digits that the draw has in common with P1.
void CountRepeatTails(RedSet cur, RedSet P1, int& repeatTails);

// x in P2 with x+1 or x-1 in P1.
int CountCross(RedSet cur, RedSet P1, RedSet P2);

// x below a gap of P1 whose both sides are there.
int CountValley(RedSet cur, RedSet P1);

// x and x+2 drawn, x+1 not, but x+1 in P1.
int CountPeak(RedSet cur, RedSet P1);

// x repeated while its right (Up) or left (Down) neighbour in P1 is not.
int CountCornerUp(RedSet cur, RedSet P1);
int CountCornerDown(RedSet cur, RedSet P1);

// A valley whose two sides lie two or three rows above, x absent from the rows between.
int CountValleySkip1(RedSet cur, RedSet P1, RedSet P2);
int CountValleySkip2(RedSet cur, RedSet P1, RedSet P2, RedSet P3);

// A valley with x in P2: the lower corner of a diamond.
int CountDiamond(RedSet cur, RedSet P1, RedSet P2);

// The number on one side of x in both P1 and P2.
int CountDoubleSlant(RedSet cur, RedSet P1, RedSet P2);

// The two numbers next to x on one side in P1.
int CountRunSlant(RedSet cur, RedSet P1);

// On one side of x in P1 the first and third number without the second.
int CountRowSkipSlant(RedSet cur, RedSet P1);

// The number on one side of x in P1 and P3 but not in P2.
int CountColumnSkipSlant(RedSet cur, RedSet P1, RedSet P2, RedSet P3);

// x not in P1, and a neighbour of x in P2 but not in P1.
int CountAlternateEdge(RedSet cur, RedSet P1, RedSet P2);

// x in the middle of two numbers of P1 that are each `d` away.
int CountEquidistant(RedSet cur, RedSet P1, int d);

// Numbers among the first five of the draw with exactly `d` integers up to another of its numbers.
int CountSpacing(RedSequence cur, int d);

// 1 when the gaps between adjacent numbers (difference minus one, two digits each) hold the
// pattern, such as "00,01" for 05,06,08; otherwise 0.
int HasGapPattern(RedSequence cur, std::string_view pattern);

// The items of a comma text in ascending order of value, two digits each.
std::string SortNumberList(std::string_view list);

}  // namespace ssq
