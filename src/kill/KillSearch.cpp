#include "kill/KillSearch.h"

#include <algorithm>
#include <array>
#include <bit>

#include "base/numbers.h"

namespace ssq {

namespace {

using Word = std::uint64_t;
constexpr int kWordBits = 64;

std::size_t Index(int number) {
    return static_cast<std::size_t>(number);
}

std::vector<std::vector<int>> NumbersOf(std::span<const RedSet> draws) {
    std::vector<std::vector<int>> all(draws.size());
    for (std::size_t draw = 0; draw < draws.size(); ++draw) {
        for (int red = 1; red <= RedSet::kLargest; ++red) {
            if (draws[draw].Has(red)) all[draw].push_back(red);
        }
    }
    return all;
}

// For each offset how many numbers of the source, lowered by it in the ring, are in the target: the
// pairs that lie so far apart.
std::array<int, RedSet::kLargest> HitsByOffset(const std::vector<int>& target,
                                               const std::vector<int>& source) {
    std::array<int, RedSet::kLargest> hits{};
    for (const int from : source) {
        for (const int to : target) {
            const int offset = from - to;
            ++hits[Index(offset < 0 ? offset + RedSet::kLargest : offset)];
        }
    }
    return hits;
}

std::int64_t Combinations(int items, int taken) {
    std::int64_t count = 1;
    for (int i = 0; i < taken; ++i) count = count * (items - i) / (i + 1);
    return count;
}

// One bit per draw, packed into words, for every formula.
class DrawBits {
  public:
    DrawBits(const HitMatrix& matrix, std::size_t words, bool (*holds)(int hits))
        : words_(words), bits_(kFormulaCount * words) {
        for (int formula = 0; formula < kFormulaCount; ++formula) {
            Word* row = bits_.data() + static_cast<std::size_t>(formula) * words;
            for (int draw = 0; draw < matrix.draws(); ++draw) {
                if (holds(matrix.hits(draw, formula)))
                    row[draw / kWordBits] |= Word{1} << draw % kWordBits;
            }
        }
    }

    const Word* of(int formula) const {
        return bits_.data() + static_cast<std::size_t>(formula) * words_;
    }

  private:
    std::size_t words_;
    std::vector<Word> bits_;
};

// Depth-first over the sets in lexicographic order. For the formulas chosen so far it keeps, per
// slack s, the draws that pass with at most rc - s single hits. One more formula turns them into
// ok & (slack[s + 1] | slack[s] & zero), so the last one costs a few logic operations and a
// population count per word. No set of a subtree passes more draws than its prefix does at slack
// 0, which lets subtrees go that cannot beat the best so far.
class Search {
  public:
    Search(const HitMatrix& matrix, const KillGoal& goal, const KillSearchStep& step)
        : words_(static_cast<std::size_t>((matrix.draws() + kWordBits - 1) / kWordBits)),
          draws_(matrix.draws()),
          goal_(goal),
          step_(step),
          zero_(matrix, words_, [](int hits) { return hits == 0; }),
          ok_(matrix, words_, [](int hits) { return hits <= 1; }) {
        for (auto& level : slack_) level.resize((kLargestKillSet + 1) * words_);
        for (int s = 0; s <= goal.setSize; ++s) {
            if (goal.rc >= s) std::fill_n(At(0, s), words_, ~Word{0});
        }
        RaiseNeeded();
    }

    KillSearchResult Run() {
        result_.finished = Extend(0, 0);
        return std::move(result_);
    }

  private:
    Word* At(int depth, int slack) {
        return slack_[static_cast<std::size_t>(depth)].data() +
               static_cast<std::size_t>(slack) * words_;
    }

    // The fewest passed draws that a set needs to be taken now.
    void RaiseNeeded() {
        const auto isTaken = [this](double rate) {
            return rate >= goal_.setRate && rate > result_.rate;
        };
        while (needed_ <= draws_ && !isTaken(Percent(needed_, draws_))) ++needed_;
    }

    int PrefixPasses(int depth) {
        const Word* draws = At(depth, 0);
        int passes = 0;
        for (std::size_t w = 0; w < words_; ++w) passes += std::popcount(draws[w]);
        return passes;
    }

    void Choose(int depth, int formula) {
        chosen_[static_cast<std::size_t>(depth)] = formula;
        const Word* zero = zero_.of(formula);
        const Word* ok = ok_.of(formula);
        for (int s = 0; s < goal_.setSize - depth; ++s) {
            const Word* same = At(depth, s);
            const Word* stricter = At(depth, s + 1);
            Word* next = At(depth + 1, s);
            for (std::size_t w = 0; w < words_; ++w)
                next[w] = ok[w] & (stricter[w] | (same[w] & zero[w]));
        }
    }

    bool Extend(int depth, int first) {
        const int missing = goal_.setSize - depth;
        if (missing == 1) return TryLast(depth, first);
        for (int formula = first; formula < kFormulaCount; ++formula) {
            Choose(depth, formula);
            if (PrefixPasses(depth + 1) < needed_) {
                done_ += Combinations(kFormulaCount - 1 - formula, missing - 1);
            } else if (!Extend(depth + 1, formula + 1)) {
                return false;
            }
        }
        return true;
    }

    bool TryLast(int depth, int first) {
        if (!step_(done_)) return false;
        const Word* same = At(depth, 0);
        const Word* stricter = At(depth, 1);
        for (int formula = first; formula < kFormulaCount; ++formula) {
            const Word* zero = zero_.of(formula);
            const Word* ok = ok_.of(formula);
            int passes = 0;
            for (std::size_t w = 0; w < words_; ++w)
                passes += std::popcount(ok[w] & (stricter[w] | (same[w] & zero[w])));
            if (passes >= needed_) Take(depth, formula, passes);
        }
        done_ += kFormulaCount - first;
        return true;
    }

    void Take(int depth, int formula, int passes) {
        result_.formulas.assign(chosen_.begin(), chosen_.begin() + depth);
        result_.formulas.push_back(formula);
        result_.rate = Percent(passes, draws_);
        RaiseNeeded();
    }

    std::size_t words_;
    int draws_;
    KillGoal goal_;
    const KillSearchStep& step_;
    DrawBits zero_;
    DrawBits ok_;
    std::array<std::vector<Word>, kLargestKillSet + 1> slack_;
    std::array<int, kLargestKillSet> chosen_{};
    int needed_ = 1;
    std::int64_t done_ = 0;
    KillSearchResult result_;
};

}  // namespace

HitMatrix::HitMatrix(int draws)
    : draws_(draws), hits_(static_cast<std::size_t>(draws) * kFormulaCount) {}

HitMatrix HitsOf(std::span<const RedSet> before, int draws) {
    const auto numbers = NumbersOf(before.first(Index(draws) + kFormulaDraws));
    HitMatrix matrix(draws);
    for (int draw = 0; draw < draws; ++draw) {
        const auto target = static_cast<std::size_t>(draw);
        for (int q = 1; q <= kFormulaDraws; ++q) {
            const auto hits = HitsByOffset(numbers[target], numbers[target + Index(q)]);
            for (int b = 1; b <= kFormulaOffsets; ++b) {
                matrix.Set(draw, FormulaIndex({q, b}), hits[Index(b)]);
            }
        }
    }
    return matrix;
}

std::int64_t KillSetCount(int setSize) {
    return Combinations(kFormulaCount, setSize);
}

KillSearchResult FindBestKillSet(const HitMatrix& matrix, const KillGoal& goal,
                                 const KillSearchStep& step) {
    return Search(matrix, goal, step).Run();
}

}  // namespace ssq
