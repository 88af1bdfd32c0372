#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ssq {
namespace {

TEST(Round, TakesTiesToTheEvenDigit) {
    const std::pair<double, double> cases[] = {
        {0.125, 0.12}, {0.375, 0.38}, {-0.125, -0.12},  {-0.375, -0.38},
        {2.5, 2.5},    {0.126, 0.13}, {33.3333, 33.33},
    };
    for (const auto& [value, rounded] : cases) EXPECT_EQ(Round(value), rounded) << value;
    EXPECT_EQ(Percent(5, 16000), 0.03);  // 0.03125
    EXPECT_EQ(Percent(1, 800), 0.12);    // 0.125
}

TEST(Numbers, AreReadAsAUserTypesThem) {
    const struct {
        const char* text;
        std::optional<double> number;  // of the text as a whole
        double leading;
    } kCases[] = {
        {"1,234,567.5", 1234567.5, 1},
        {" -5 ", -5, -5},
        {"+.5", 0.5, 0.5},
        {"1e3", 1000, 1000},
        {"12期", std::nullopt, 12},
        {"1 2", {}, 12},
        {"0x10", {}, 0},
        {"", {}, 0},
        {"1e", {}, 1},
        {",5", {}, 0},
        {"nan", {}, 0},
        {"-", {}, 0},
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(ParseNumber(c.text), c.number) << c.text;
        EXPECT_EQ(Val(c.text), c.leading) << c.text;
    }
}

TEST(NumberText, ShowsTheShortestPlainForm) {
    const std::pair<double, const char*> cases[] = {
        {100, "100"},     {33.30, "33.3"},          {-0.0, "0"},
        {0.07, "0.07"},   {271828182, "271828182"}, {0.1 + 0.2, "0.30000000000000004"},
        {0.0 / NAN, "-"},
    };
    for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
}

}  // namespace
}  // namespace ssq
