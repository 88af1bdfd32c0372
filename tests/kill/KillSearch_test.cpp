#include "kill/KillSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "app/numbers.h"
#include "kill/BMHZ.h"

namespace ssq {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

bool GoOn(std::int64_t) {
    return true;
}

// Formulas that are not listed have two hits on every draw, which no set survives.
using Rows = std::map<int, std::string>;  // one digit per draw, newest first

HitMatrix MatrixOf(const Rows& rows) {
    HitMatrix matrix(static_cast<int>(rows.begin()->second.size()));
    for (int draw = 0; draw < matrix.draws(); ++draw) {
        for (int formula = 0; formula < kFormulaCount; ++formula) matrix.Set(draw, formula, 2);
        for (const auto& [formula, digits] : rows) {
            matrix.Set(draw, formula, digits[static_cast<std::size_t>(draw)] - '0');
        }
    }
    return matrix;
}

struct HandCase {
    const char* what;
    KillGoal goal;
    Rows rows;
    std::vector<int> formulas;
    double rate;
};

TEST(KillSearch, FindsTheSetsWorkedOutByHand) {
    const HandCase cases[] = {
        {"a zero cell passes", {1, 0, 10}, {{5, "011"}, {9, "001"}}, {9}, 66.67},
        {"one single hit allowed, first of a tie", {1, 1, 10}, {{5, "011"}, {9, "001"}}, {5}, 100},
        {"two hits fail whatever rc", {1, 4, 10}, {{5, "012"}, {129, "102"}}, {5}, 66.67},
        {"pair without tolerance, first of a tie",
         {2, 0, 10},
         {{5, "001"}, {9, "010"}, {20, "000"}},
         {5, 20},
         66.67},
        {"pair, one of them may miss", {2, 1, 10}, {{5, "001"}, {9, "010"}}, {5, 9}, 100},
        {"pair, both miss one draw", {2, 1, 10}, {{5, "011"}, {9, "010"}}, {5, 9}, 66.67},
        {"three", {3, 1, 10}, {{0, "0011"}, {64, "0101"}, {129, "0000"}}, {0, 64, 129}, 75},
        {"four",
         {4, 2, 10},
         {{0, "0111"}, {1, "1011"}, {2, "0003"}, {129, "0001"}},
         {0, 1, 2, 129},
         75},
        {"rc above the size", {2, 9, 10}, {{5, "111"}, {9, "113"}}, {5, 9}, 66.67},
        {"rc below 0", {2, -1, 0}, {{5, "000"}, {9, "000"}}, {}, 0},
        {"best just reaches setRate", {1, 0, 66.67}, {{5, "001"}}, {5}, 66.67},
        {"best below setRate", {1, 0, 66.68}, {{5, "001"}}, {}, 0},
        {"a rate of 0 never wins", {1, 0, 0}, {{5, "111"}}, {}, 0},
    };
    for (const HandCase& c : cases) {
        const KillSearchResult best = FindBestKillSet(MatrixOf(c.rows), c.goal, GoOn);
        EXPECT_TRUE(best.finished) << c.what;
        EXPECT_THAT(best.formulas, ElementsAreArray(c.formulas)) << c.what;
        EXPECT_EQ(best.rate, c.rate) << c.what;
    }
}

double PlainRate(const HitMatrix& matrix, const std::vector<int>& set, int rc) {
    int passes = 0;
    for (int draw = 0; draw < matrix.draws(); ++draw) {
        int zero = 0;
        int big = 0;
        for (const int formula : set) {
            if (matrix.hits(draw, formula) == 0) ++zero;
            if (matrix.hits(draw, formula) > 1) ++big;
        }
        if (static_cast<int>(set.size()) - zero <= rc && big == 0) ++passes;
    }
    return Percent(passes, matrix.draws());
}

// Every set of the candidates in lexicographic order, scored cell by cell.
void PlainSearch(const HitMatrix& matrix, const KillGoal& goal, const std::vector<int>& candidates,
                 std::size_t first, std::vector<int>& set, KillSearchResult& best) {
    if (static_cast<int>(set.size()) == goal.setSize) {
        const double rate = PlainRate(matrix, set, goal.rc);
        if (rate >= goal.setRate && rate > best.rate) best = {true, set, rate};
        return;
    }
    for (std::size_t i = first; i < candidates.size(); ++i) {
        set.push_back(candidates[i]);
        PlainSearch(matrix, goal, candidates, i + 1, set, best);
        set.pop_back();
    }
}

TEST(KillSearch, AgreesWithPlainLoopsOnEverySizeToleranceAndLength) {
    const std::vector<int> live = {0, 1, 12, 13, 40, 63, 64, 65, 90, 128, 129};
    int taken = 0;
    for (const int draws : {1, 5, 63, 64, 65, 130, 12000}) {
        Rows rows;
        for (const int formula : live) {
            std::string& digits = rows[formula];
            for (int draw = 0; draw < draws; ++draw) {
                digits += "0100102101003"[(draw * (formula % 7 + 3) + draw / 5 + formula) % 13];
            }
        }
        const HitMatrix matrix = MatrixOf(rows);
        for (int size = 1; size <= kLargestKillSet; ++size) {
            for (int rc = 0; rc <= size; ++rc) {
                for (const double setRate : {0.0, 40.0}) {
                    const KillGoal goal{size, rc, setRate};
                    KillSearchResult plain;
                    std::vector<int> set;
                    PlainSearch(matrix, goal, live, 0, set, plain);
                    const KillSearchResult best = FindBestKillSet(matrix, goal, GoOn);
                    EXPECT_EQ(best.formulas, plain.formulas)
                        << draws << " draws, size " << size << ", rc " << rc;
                    EXPECT_EQ(best.rate, plain.rate);
                    taken += plain.formulas.empty() ? 0 : 1;
                }
            }
        }
    }
    EXPECT_GT(taken, 100);
}

TEST(KillSearch, StepsThroughTheSetsAndEndsWhenTold) {
    EXPECT_EQ(KillSetCount(1), 130);
    EXPECT_EQ(KillSetCount(4), 11358880);
    const HitMatrix matrix = MatrixOf({{0, "0"}, {1, "1"}});
    std::int64_t last = -1;
    const auto rising = [&](std::int64_t done) {
        EXPECT_GT(done, last);
        last = done;
        return true;
    };
    EXPECT_TRUE(FindBestKillSet(matrix, {4, 4, 10}, rising).finished);
    EXPECT_LT(last, KillSetCount(4));
    EXPECT_FALSE(FindBestKillSet(matrix, {2, 4, 10}, [](std::int64_t) { return false; }).finished);
    EXPECT_THAT(FindBestKillSet(HitMatrix(0), {1, 1, 0}, GoOn).formulas, IsEmpty());
}

}  // namespace
}  // namespace ssq
