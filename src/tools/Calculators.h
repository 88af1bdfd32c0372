// Numbers of combinations, and what bets cost.
#pragma once

#include <optional>

namespace ssq {

class Host;

// How many ways there are to take n out of m: the product from m - n + 1 to m over that from 1 to
// n, rounded to a whole number; n of 0 or less gives 1. Numbers that are not whole are multiplied
// in steps of 1 all the same. Not finite beyond the range of double precision.
double Combinations(double m, double n);

// Price in yuan of a bet with bankers, drags and blues; nothing after a message when bankers and
// drags are fewer than six.
std::optional<double> BankerBetPrice(Host& host, int bankers, int drags, int blues);

// Price in yuan of a bet on more than six reds or one blue; nothing after a message when the reds
// are fewer than six.
std::optional<double> MultipleBetPrice(Host& host, int reds, int blues);

}  // namespace ssq
