#include "recognition/pad_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace glidemap {
namespace {

using std::numbers::pi;

TEST(PadGeometryTest, StretchingChangesOnlyX) {
    EXPECT_EQ(stretched({1, 1}), (PadPoint{1.35, 1}));
    EXPECT_EQ(stretched({-2, 0.5}), (PadPoint{-2.7, 0.5}));
}

TEST(PadGeometryTest, DistancesAreEuclidean) {
    EXPECT_EQ(length({3, 4}), 5);
    EXPECT_EQ(distance({1, 1}, {4, -3}), 5);
    EXPECT_EQ(dot({2, 3}, {5, -1}), 7);
}

TEST(PadGeometryTest, DistanceAlongOneAxisIsExact) {
    for (const double step : {0.004, 0.03, 0.035, 0.045, 0.15, 0.22, 1e-9}) {
        EXPECT_EQ(distance({0, 0.3}, {step, 0.3}), step);
        EXPECT_EQ(distance({0.7, 0}, {0.7, step}), step);
    }
}

TEST(PadGeometryTest, AnglesIncreaseCounterclockwiseFromTheRight) {
    EXPECT_EQ(angle({1, 0}), 0);
    EXPECT_EQ(angle({0, 1}), pi / 2);
    EXPECT_EQ(angle({-1, 0}), pi);
    EXPECT_EQ(angle({0, -1}), -pi / 2);
}

TEST(PadGeometryTest, TurnIsWrappedToTheShorterDirection) {
    const struct {
        double difference;
        double expected;
    } rows[] = {
        {0, 0},
        {1, 1},
        {-1, -1},
        {pi, pi},
        {-pi, -pi},
        {std::nextafter(pi, 4), std::nextafter(pi, 4) - 2 * pi},
        {std::nextafter(-pi, -4), std::nextafter(-pi, -4) + 2 * pi},
        {2 * pi, 0},
        {-2 * pi, 0},
        {1.5 * pi, -0.5 * pi},
        {-1.5 * pi, 0.5 * pi},
        {3.5 * pi, -0.5 * pi},
    };
    for (const auto& [difference, expected] : rows) {
        EXPECT_EQ(wrapped(difference), expected) << difference;
    }
}

TEST(PadGeometryTest, WrappingANonFiniteAngleTerminates) {
    EXPECT_TRUE(std::isnan(wrapped(std::numeric_limits<double>::quiet_NaN())));
}

} // namespace
} // namespace glidemap
