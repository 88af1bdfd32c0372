#include "kill/KillSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "formulas/BMHZ.h"

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

TEST(KillSearch, FindsTheSetsWorkedOutByHand) {
    struct Case {
        const char* what;
        KillGoal goal;
        Rows rows;
        std::vector<int> formulas;
        double rate;
    };
    const Case cases[] = {
        {"a zero cell passes", {1, 0, 10}, {{5, "011"}, {9, "001"}}, {9}, 66.67},
        {"one single hit allowed, first of a tie", {1, 1, 10}, {{5, "011"}, {9, "001"}}, {5}, 100},
        {"two hits fail whatever rc", {1, 4, 10}, {{5, "012"}, {129, "102"}}, {5}, 66.67},
        {"pair, both miss one draw", {2, 1, 10}, {{5, "011"}, {9, "010"}}, {5, 9}, 66.67},
        {"three", {3, 1, 10}, {{0, "0011"}, {64, "0101"}, {129, "0000"}}, {0, 64, 129}, 75},
        {"rc above the size", {2, 9, 10}, {{5, "111"}, {9, "113"}}, {5, 9}, 66.67},
        {"rc below 0", {2, -1, 0}, {{5, "000"}, {9, "000"}}, {}, 0},
        {"best just reaches setRate", {1, 0, 66.67}, {{5, "001"}}, {5}, 66.67},
        {"best below setRate", {1, 0, 66.68}, {{5, "001"}}, {}, 0},
        {"a rate of 0 never wins", {1, 0, 0}, {{5, "111"}}, {}, 0},
    };
    for (const Case& c : cases) {
        const KillSearchResult best = FindBestKillSet(MatrixOf(c.rows), c.goal, GoOn);
        EXPECT_THAT(best.formulas, ElementsAreArray(c.formulas)) << c.what;
        EXPECT_EQ(best.rate, c.rate) << c.what;
    }
}

TEST(KillSearch, StepsThroughTheSetsAndEndsWhenTold) {
    EXPECT_EQ(KillSetCount(4), 11358880);
    const HitMatrix matrix = MatrixOf({{0, "0"}, {1, "1"}});
    std::int64_t last = -1;
    const auto rising = [&](std::int64_t done) { return done > std::exchange(last, done); };
    EXPECT_TRUE(FindBestKillSet(matrix, {4, 4, 10}, rising).finished);
    EXPECT_LT(last, KillSetCount(4));
    EXPECT_FALSE(FindBestKillSet(matrix, {2, 4, 10}, [](std::int64_t) { return false; }).finished);
    EXPECT_THAT(FindBestKillSet(HitMatrix(0), {1, 1, 0}, GoOn).formulas, IsEmpty());
}

}  // namespace
}  // namespace ssq
