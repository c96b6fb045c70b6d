// Tests the common parts of all motions. The expected numbers are calculated by hand: x²(3 - 2x) is
// 0.5 at 1/2, 0.15625 at 1/4, 0.84375 at 3/4, 0.028 at 1/10, 0.104 at 1/5.
#include "ui/demo/gesture_demo.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace glidemap::demo {

namespace {

constexpr double exactness = 1e-9;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

TEST(SmoothstepTest, RisesFromZeroToOneAndIsClamped) {
    struct Row {
        double x;
        double expected;
    };
    const Row rows[] = {
        {-infinity, 0},     {-1, 0},    {-1e-9, 0},      {0, 0},        {0.1, 0.028}, {0.2, 0.104},
        {0.25, 0.15625},    {0.5, 0.5}, {0.75, 0.84375}, {0.8, 0.896},  {0.9, 0.972}, {1, 1},
        {1.000'000'001, 1}, {7, 1},     {infinity, 1},   {noNumber, 0},
    };
    for (const Row& row : rows) {
        EXPECT_NEAR(smoothstep(row.x), row.expected, exactness) << row.x;
    }
}

TEST(EnvelopeTest, FadesInAfterItsStartAndOutBeforeItsEnd) {
    struct Row {
        const char* name;
        double t;
        double expected;
    };
    const Row rows[] = {
        {"long before", -1, 0},
        {"just before the beginning", 0.999, 0},
        {"at the beginning", 1, 0},
        {"a tenth in", 1.02, 0.028},
        {"a quarter in", 1.05, 0.15625},
        {"half in", 1.1, 0.5},
        {"three quarters in", 1.15, 0.84375},
        {"all in", 1.2, 1},
        {"in the middle", 1.5, 1},
        {"about to fade", 1.8, 1},
        {"a quarter out", 1.85, 0.84375},
        {"half out", 1.9, 0.5},
        {"a tenth left", 1.98, 0.028},
        {"at the end", 2, 0},
        {"just after the end", 2.001, 0},
        {"at no time", noNumber, 0},
    };
    for (const Row& row : rows) {
        EXPECT_NEAR(env(row.t, 1, 2, 0.2), row.expected, exactness) << row.name;
    }
}

TEST(EnvelopeTest, SpanShorterThanTheFadesIsNeverFullyOpaque) {
    EXPECT_NEAR(env(1.05, 1, 1.2, 0.2), 0.15625, exactness);
    EXPECT_NEAR(env(1.1, 1, 1.2, 0.2), 0.5, exactness);
    EXPECT_NEAR(env(1.16, 1, 1.2, 0.2), 0.104, exactness);
}

TEST(HandTest, FingersAreEvenlySpacedAndTheOuterOnesAreLower) {
    struct Row {
        int count;
        Point center;
        double spacing;
        std::vector<Point> expected;
    };
    const Row rows[] = {
        {0, {0.5, 0.5}, 0.16, {}},
        {-1, {0.5, 0.5}, 0.16, {}},
        {1, {0.5, 0.5}, 0.16, {{0.5, 0.49}}},
        {2, {0.5, 0.5}, 0.16, {{0.42, 0.4945}, {0.58, 0.4945}}},
        {3, {0.5, 0.5}, 0.16, {{0.34, 0.508}, {0.5, 0.49}, {0.66, 0.508}}},
        {4, {0.5, 0.5}, 0.16, {{0.26, 0.5305}, {0.42, 0.4945}, {0.58, 0.4945}, {0.74, 0.5305}}},
        {5,
         {0.5, 0.5},
         0.16,
         {{0.18, 0.562}, {0.34, 0.508}, {0.5, 0.49}, {0.66, 0.508}, {0.82, 0.562}}},
        {3, {0.33, 0.7}, 0.11, {{0.22, 0.708}, {0.33, 0.69}, {0.44, 0.708}}},
        {2, {0, 0}, 0, {{0, -0.0055}, {0, -0.0055}}},
    };
    for (const Row& row : rows) {
        const std::vector<Point> found = hand(row.count, row.center, row.spacing);
        ASSERT_EQ(found.size(), row.expected.size()) << row.count;
        for (std::size_t index = 0; index < found.size(); ++index) {
            EXPECT_NEAR(found[index].x, row.expected[index].x, exactness) << row.count;
            EXPECT_NEAR(found[index].y, row.expected[index].y, exactness) << row.count;
        }
    }
}

TEST(GestureDemoTest, LoopLasts2600Milliseconds) {
    EXPECT_EQ(loopDuration, 2.6);
}

} // namespace

} // namespace glidemap::demo
