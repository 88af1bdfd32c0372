#include "base/combinations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ssq {
namespace {

TEST(CombinationRank, CountsThroughTheDictionaryOrder) {
    std::int32_t place = 0;
    SixReds r{};
    for (r[0] = 1; r[0] <= 33; ++r[0])
        for (r[1] = r[0] + 1; r[1] <= 33; ++r[1])
            for (r[2] = r[1] + 1; r[2] <= 33; ++r[2])
                for (r[3] = r[2] + 1; r[3] <= 33; ++r[3])
                    for (r[4] = r[3] + 1; r[4] <= 33; ++r[4])
                        for (r[5] = r[4] + 1; r[5] <= 33; ++r[5]) {
                            ++place;
                            ASSERT_EQ(CombinationRank(r), place);
                            ASSERT_EQ(CombinationAt(place), r) << place;
                        }
    EXPECT_EQ(place, kCombinationCount);
}

TEST(CombinationRank, RefusesWhatIsNoAscendingSix) {
    for (const SixReds& reds : {SixReds{0, 1, 2, 3, 4, 5}, SixReds{1, 2, 3, 4, 5, 34},
                                SixReds{2, 1, 3, 4, 5, 6}, SixReds{1, 2, 3, 4, 6, 6}}) {
        EXPECT_EQ(CombinationRank(reds), 0);
    }
}

using testing::ElementsAre;

TEST(ComboLists, KeepTheDictionaryOrderAndTheirDifferentTexts) {
    EXPECT_THAT(ComboList1("01,,2"), ElementsAre("1", "2", ""));
    EXPECT_THAT(ComboList2("01,02,,3"), ElementsAre("01,02", "01,3", "02,3", ""));
    EXPECT_THAT(ComboList3("01,02,03,04"), ElementsAre("1,2,3", "1,2,4", "1,3,4", "2,3,4", ""));
    EXPECT_THAT(ComboList4("1,2,3,4"), ElementsAre("1,2,3,4", ""));
    EXPECT_THAT(ComboList5("1,2,3,4"), ElementsAre(""));
}

}  // namespace
}  // namespace ssq
