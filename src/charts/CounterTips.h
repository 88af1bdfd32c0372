// What the headings of the main chart's counters tell: one sentence and a small drawing each.
#pragma once

#include <array>
#include <string>

namespace ssq {

struct CounterMeaning {
    const char* sentence;  // what one in the column counts
    // Draws from the oldest to the newest, null behind the last: numbers of two digits and "." for
    // empty places, "*" behind a number that counts, a blue one behind "+".
    std::array<const char*, 5> draws;
};

// In the order of kTrendCounters.
extern const std::array<CounterMeaning, 32> kCounterMeanings;

// The tip as rich text.
std::string CounterTip(std::size_t counter);

}  // namespace ssq
