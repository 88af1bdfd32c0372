// The hits of one formula over the most recent draws, for its chart.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "draws/public_fun.h"

namespace ssq {

struct TrendLength {
    const char* caption;
    int periods;
};

inline constexpr std::array kTrendLengths = {
    TrendLength{"最近10期走势图", 10},   TrendLength{"最近50期走势图", 50},
    TrendLength{"最近100期走势图", 100}, TrendLength{"最近150期走势图", 150},
    TrendLength{"最近200期走势图", 200}, TrendLength{"最近300期走势图", 300},
    TrendLength{"最近500期走势图", 500},
};

// The value axis. Draws without a hit lie below it on purpose, so that the line shows hits only.
inline constexpr int kTrendAxisMin = 1;
inline constexpr int kTrendAxisMax = 6;
inline constexpr int kTrendAxisDivision = 5;

struct TrendReport {
    std::string title;                // how often one to four reds were hit
    std::vector<std::string> labels;  // issues without their first two digits, oldest first
    std::vector<double> values;       // reds hit, 0 to 6
};

// Reads the newest `periods` draws of the range from the column `key` of BMHZ; nothing after
// showing the store's error text.
std::optional<TrendReport> FormulaTrend(Session& session, const std::string& key,
                                        const PeriodRange& range, int periods);

}  // namespace ssq
