// What the benchmarks share: timing two ways to the same result and printing their ratio.
#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace ssq {

// Seconds of the quickest of `runs` calls.
template <typename Action>
double SecondsOf(int runs, Action action) {
    double best = 0;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        action();
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        if (run == 0 || spent.count() < best) best = spent.count();
    }
    return best;
}

// Ends the benchmark as failed when the two ways disagree.
inline void RequireEqual(bool equal, const std::string& what) {
    if (equal) return;
    std::fprintf(stderr, "%s: results differ\n", what.c_str());
    std::exit(EXIT_FAILURE);
}

inline void PrintRatio(const std::string& what, double baselineSeconds, double seconds) {
    std::printf("%s: baseline %.3f ms, here %.3f ms, ratio %.0f\n", what.c_str(),
                baselineSeconds * 1e3, seconds * 1e3, baselineSeconds / seconds);
}

}  // namespace ssq
