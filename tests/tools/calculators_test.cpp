// The comparator and the calculators.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "draws/Draw.h"
#include "support/TestHost.h"
#include "tools/Calculators.h"
#include "tools/NumberComparator.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ReadNumbers, SeparatesByBlanksAndCommas) {
    const struct {
        const char* text;
        const char* numbers;  // null where the text is refused
    } cases[] = {
        {"1 2  3,4 5 6", "01,02,03,04,05,06"},
        {" 06,05 5 ", "05,06"},
        {"33.0 1.5", "02,33"},
        {"34", nullptr},
        {"0,1", nullptr},
        {"1,2,", nullptr},
        {"1, 2", nullptr},
        {"a", nullptr},
        {"1e999", nullptr},
    };
    for (const auto& [text, numbers] : cases) {
        const auto read = ReadNumbers(text);
        EXPECT_EQ(read.has_value(), numbers != nullptr) << text;
        EXPECT_EQ(read.value_or(RedSet()).ToList(), numbers ? numbers : "") << text;
    }
}

TEST(CompareNumbers, ListsDrawsByTheRedsCaught) {
    std::vector<Draw> draws;
    for (const char* reds :
         {"01,02,03,04,05,06", "01,02,03,04,05,33", "01,02,03,31,32,33", "02,03,04,05,32,33"}) {
        Draw draw;
        draw.issue = std::to_string(2009001 + draws.size());
        draw.reds = reds;
        draw.set = RedSet::FromList(reds);
        draws.push_back(draw);
    }
    const CaughtDraws caught = CompareNumbers(*ReadNumbers("6 5 4 3 2 1 1 9"), draws);
    EXPECT_THAT(caught.six, ElementsAre("2009001  01,02,03,04,05,06"));
    EXPECT_THAT(caught.five, ElementsAre("2009002  01,02,03,04,05,33"));
    EXPECT_THAT(caught.four, ElementsAre("2009004  02,03,04,05,32,33"));
}

TEST(Calculators, CombinationsAndPrices) {
    EXPECT_EQ(Combinations(33, 6), 1107568);
    EXPECT_EQ(Combinations(33, 33), 1);
    EXPECT_EQ(Combinations(33, 0), 1);
    EXPECT_EQ(Combinations(5, -3), 1);
    EXPECT_EQ(Combinations(4, 1.5), 4);  // 3.5 over 1
    EXPECT_EQ(Combinations(1e15, 1), 1e15);
    EXPECT_FALSE(std::isfinite(Combinations(1e15, 1e14)));

    TestHost host;
    EXPECT_EQ(BankerBetPrice(host, 5, 1, 16), 32);
    EXPECT_EQ(BankerBetPrice(host, 1, 16, 1), 8736);  // 5 of 16 are 4368
    EXPECT_EQ(MultipleBetPrice(host, 6, 1), 2);
    EXPECT_EQ(MultipleBetPrice(host, 33, 16), 35442176);
    EXPECT_THAT(host.boxes, IsEmpty());
    EXPECT_FALSE(BankerBetPrice(host, 2, 3, 1));
    EXPECT_FALSE(MultipleBetPrice(host, 5, 1));
    EXPECT_THAT(host.Texts(), ElementsAre("胆码和拖码总数不能小于6个", "红球不能小于6个"));
}

}  // namespace
}  // namespace ssq
