#include "choreography/chance.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace glidemap {
namespace {

TEST(ChanceTest, SameSeedGivesTheSameChoices) {
    Chance first(7);
    Chance second(7);
    Chance other(8);
    const double choice = first.between(0, 1);
    EXPECT_EQ(choice, second.between(0, 1));
    EXPECT_NE(choice, other.between(0, 1));
    EXPECT_NE(choice, first.between(0, 1));
}

TEST(ChanceTest, ChoicesAreUniformWithinTheirRange) {
    Chance chance(1);
    constexpr int times = 10'000;
    double sum = 0;
    double low = 5;
    double high = 3;
    for (int count = 0; count < times; ++count) {
        const double choice = chance.between(3, 5);
        sum += choice;
        low = std::min(low, choice);
        high = std::max(high, choice);
    }
    EXPECT_GE(low, 3);
    EXPECT_LT(low, 3.01);
    EXPECT_LT(high, 5);
    EXPECT_GT(high, 4.99);
    EXPECT_NEAR(sum / times, 4, 0.05);
}

TEST(ChanceTest, OneInEightIsTrueForAboutAnEighthOfTheCalls) {
    Chance chance(2);
    int hits = 0;
    for (int count = 0; count < 8000; ++count) {
        hits += chance.oneIn(8) ? 1 : 0;
    }
    EXPECT_NEAR(hits, 1000, 150);
}

TEST(ChanceTest, WobbleIsMostlySmallAndAtMostOne) {
    Chance chance(3);
    int small = 0;
    for (int count = 0; count < 1000; ++count) {
        const double wobble = chance.wobble();
        EXPECT_LE(wobble, 1);
        EXPECT_GE(wobble, -1);
        small += wobble > -0.5 && wobble < 0.5 ? 1 : 0;
    }
    EXPECT_GT(small, 750);
}

} // namespace
} // namespace glidemap
