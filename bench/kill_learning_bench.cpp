// The search for the best set of four shifting formulas: four plain loops against the masks.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "Ratio.h"
#include "base/RedSet.h"
#include "base/numbers.h"
#include "formulas/BMHZ.h"
#include "kill/KillSearch.h"

namespace {

using ssq::HitMatrix;
using ssq::kFormulaCount;
using ssq::KillGoal;
using ssq::KillSearchResult;
using ssq::RedSet;

// A history of draws from a fixed linear congruential sequence (Knuth's MMIX constants).
std::vector<RedSet> MakeDraws(int count) {
    constexpr int kReds = 6;
    std::uint64_t state = 1;
    std::vector<RedSet> draws(static_cast<std::size_t>(count));
    for (RedSet& draw : draws) {
        while (draw.Count() < kReds) {
            state = state * 6364136223846793005U + 1442695040888963407U;
            draw.Add(static_cast<int>((state >> 33) % RedSet::kLargest) + 1);
        }
    }
    return draws;
}

HitMatrix MakeMatrix(int learningDraws) {
    const std::vector<RedSet> draws = MakeDraws(learningDraws + ssq::kFormulaDraws);
    HitMatrix matrix(learningDraws);
    for (int draw = 0; draw < learningDraws; ++draw) {
        for (int index = 0; index < kFormulaCount; ++index) {
            const ssq::ShiftFormula formula = ssq::FormulaAt(index);
            matrix.Set(draw, index,
                       ssq::ShiftHits(draws[static_cast<std::size_t>(draw)],
                                      draws[static_cast<std::size_t>(draw + formula.q)], formula.b,
                                      ssq::ShiftMode::kMinus));
        }
    }
    return matrix;
}

int Passes(const std::array<const int*, 4>& cells, int draws, int rc) {
    const auto [a, b, c, d] = cells;
    int passes = 0;
    for (int draw = 0; draw < draws; ++draw) {
        const int zero = (a[draw] == 0) + (b[draw] == 0) + (c[draw] == 0) + (d[draw] == 0);
        const int big = (a[draw] > 1) + (b[draw] > 1) + (c[draw] > 1) + (d[draw] > 1);
        passes += static_cast<int>(4 - zero <= rc) & static_cast<int>(big == 0);
    }
    return passes;
}

// The rule as it is told: every set, every draw, every cell, on plain integers.
KillSearchResult PlainSearch(const HitMatrix& matrix, const KillGoal& goal) {
    std::vector<std::vector<int>> columns(kFormulaCount);
    for (int formula = 0; formula < kFormulaCount; ++formula) {
        for (int draw = 0; draw < matrix.draws(); ++draw) {
            columns[static_cast<std::size_t>(formula)].push_back(matrix.hits(draw, formula));
        }
    }
    const auto column = [&](int formula) {
        return columns[static_cast<std::size_t>(formula)].data();
    };
    KillSearchResult best;
    for (int i = 0; i < kFormulaCount - 3; ++i) {
        for (int j = i + 1; j < kFormulaCount - 2; ++j) {
            for (int k = j + 1; k < kFormulaCount - 1; ++k) {
                for (int l = k + 1; l < kFormulaCount; ++l) {
                    const int passes = Passes({column(i), column(j), column(k), column(l)},
                                              matrix.draws(), goal.rc);
                    const double rate = ssq::Percent(passes, matrix.draws());
                    if (rate >= goal.setRate && rate > best.rate) best = {true, {i, j, k, l}, rate};
                }
            }
        }
    }
    return best;
}

void Compare(int draws, const KillGoal& goal) {
    constexpr int kRuns = 5;
    const std::string what = "kill learning, sets of four at " + std::to_string(draws) +
                             " draws, rc " + std::to_string(goal.rc);
    const HitMatrix matrix = MakeMatrix(draws);
    KillSearchResult plain;
    KillSearchResult fast;
    const double plainSeconds = ssq::SecondsOf(1, [&] { plain = PlainSearch(matrix, goal); });
    const double seconds = ssq::SecondsOf(kRuns, [&] {
        fast = ssq::FindBestKillSet(matrix, goal, [](std::int64_t) { return true; });
    });
    ssq::RequireEqual(plain.formulas == fast.formulas && plain.rate == fast.rate, what);
    ssq::PrintRatio(what, plainSeconds, seconds);
}

}  // namespace

int main() {
    Compare(10, {4, 0, 10});
    Compare(10, {4, 2, 10});
    Compare(10, {4, 4, 90});
    Compare(100, {4, 2, 10});
    return 0;
}
