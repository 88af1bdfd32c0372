// The search for the best set of shifting formulas: plain loops against the masks.
#include <cstdint>
#include <string>
#include <vector>

#include "Ratio.h"
#include "base/RedSet.h"
#include "base/numbers.h"
#include "draws/Draw.h"
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
    std::uint64_t state = 1;
    std::vector<RedSet> draws(static_cast<std::size_t>(count));
    for (RedSet& draw : draws) {
        while (draw.Count() < ssq::kRedsInDraw) {
            state = state * 6364136223846793005U + 1442695040888963407U;
            draw.Add(static_cast<int>((state >> 33) % RedSet::kLargest) + 1);
        }
    }
    return draws;
}

// The rule in its plain form: every set, every draw, every cell, on plain integers.
class PlainSearch {
  public:
    PlainSearch(const HitMatrix& matrix, const KillGoal& goal)
        : draws_(matrix.draws()), goal_(goal), columns_(kFormulaCount) {
        for (int formula = 0; formula < kFormulaCount; ++formula) {
            for (int draw = 0; draw < draws_; ++draw) {
                columns_[static_cast<std::size_t>(formula)].push_back(matrix.hits(draw, formula));
            }
        }
    }

    KillSearchResult Run() {
        Extend(0);
        return best_;
    }

  private:
    void Extend(int first) {
        if (static_cast<int>(set_.size()) == goal_.setSize) return Score();
        for (int formula = first; formula < kFormulaCount; ++formula) {
            set_.push_back(formula);
            Extend(formula + 1);
            set_.pop_back();
        }
    }

    void Score() {
        const int* cells[ssq::kLargestKillSet] = {};
        for (int i = 0; i < goal_.setSize; ++i) {
            cells[i] = columns_[static_cast<std::size_t>(set_[static_cast<std::size_t>(i)])].data();
        }
        int passes = 0;
        for (int draw = 0; draw < draws_; ++draw) {
            int zero = 0;
            int big = 0;
            for (int i = 0; i < goal_.setSize; ++i) {
                zero += static_cast<int>(cells[i][draw] == 0);
                big += static_cast<int>(cells[i][draw] > 1);
            }
            passes += static_cast<int>(goal_.setSize - zero <= goal_.rc && big == 0);
        }
        const double rate = ssq::Percent(passes, draws_);
        if (rate >= goal_.setRate && rate > best_.rate) best_ = {true, set_, rate};
    }

    int draws_;
    KillGoal goal_;
    std::vector<std::vector<int>> columns_;
    std::vector<int> set_;
    KillSearchResult best_;
};

void Compare(int draws, const KillGoal& goal) {
    constexpr int kRuns = 5;
    const std::string what = "kill learning, sets of " + std::to_string(goal.setSize) + " at " +
                             std::to_string(draws) + " draws, rc " + std::to_string(goal.rc);
    const HitMatrix matrix = ssq::HitsOf(MakeDraws(draws + ssq::kFormulaDraws), draws);
    KillSearchResult plain;
    KillSearchResult fast;
    const double plainSeconds = ssq::SecondsOf(1, [&] { plain = PlainSearch(matrix, goal).Run(); });
    const double seconds = ssq::SecondsOf(kRuns, [&] {
        fast = ssq::FindBestKillSet(matrix, goal, [](std::int64_t) { return true; });
    });
    ssq::RequireEqual(plain.formulas == fast.formulas && plain.rate == fast.rate, what);
    ssq::PrintRatio(what, plainSeconds, seconds);
}

}  // namespace

int main(int argc, char**) {
    for (const int rc : {0, 1, 9}) {
        Compare(130, {1, rc, 10});
        Compare(64, {2, rc, 10});
    }
    Compare(65, {2, 1, 99});  // taken by none
    Compare(10, {3, 1, 40});
    if (argc > 1) return 0;  // sets of four take the loops minutes in an unoptimised build
    Compare(10, {4, 0, 10});
    Compare(10, {4, 2, 10});
    Compare(10, {4, 4, 90});
    Compare(100, {4, 2, 10});
    return 0;
}
