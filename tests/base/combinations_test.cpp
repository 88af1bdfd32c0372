#include "base/combinations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ssq {
namespace {

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
