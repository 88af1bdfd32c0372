// What the tail digits of a draw's six reds say about it, in one pass.
#pragma once

#include <array>
#include <string>

namespace ssq {

// The tail digits (0 to 9) of six numbers, position by position.
using TailDigits = std::array<int, 6>;

// The last digit of a number, whatever its sign.
constexpr int TailDigit(int number) {
    const int tail = number % 10;
    return tail < 0 ? -tail : tail;
}

TailDigits TailsOf(const std::array<int, 6>& numbers);

struct TailAttributes {
    std::array<int, 10> hits{};  // numbers that end in each digit
    int sum = 0;
    int even = 0;  // 0 is even
    int odd = 0;
    int big = 0;  // 5 and more
    int small = 0;
    int prime = 0;  // 1, 2, 3, 5 and 7
    int composite = 0;
    std::array<int, 3> zones{};     // digits 0 to 2, 3 to 5, 6 to 9
    std::string form;               // one letter per position: A 1,4,7; B 0,2,5,8; C 3,6,9
    std::array<int, 3> letters{};   // how many A, B and C
    int sameTailGroups = 0;         // digits that occur twice or more
    std::array<int, 5> distance{};  // between neighbouring positions
    std::array<int, 5> pairSum{};
};

TailAttributes AttributesOf(const TailDigits& tails);

// Position by position, how far the tails moved from those of the draw shown above.
std::array<int, 6> SwingOf(const TailDigits& tails, const TailDigits& above);

}  // namespace ssq
