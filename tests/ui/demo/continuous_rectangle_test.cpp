#include "ui/demo/continuous_rectangle.h"

#include <gtest/gtest.h>

#include <QRectF>
#include <cmath>

namespace glidemap::demo {

namespace {

constexpr double radius = 100;
const QRectF rectangle(10, 20, 1'000, 800);

// Returns the depth of the outline below the top edge, at this distance from the left edge.
double depth(double fromLeft) {
    const QPainterPath path = continuousRectangle(rectangle, radius);
    double inside = rectangle.center().y();
    double outside = rectangle.top() - 1;
    for (int halving = 0; halving < 60; ++halving) {
        const double middle = (inside + outside) / 2;
        const bool within = path.contains(QPointF(rectangle.left() + fromLeft, middle));
        (within ? inside : outside) = middle;
    }
    return inside - rectangle.top();
}

TEST(ContinuousRectangleTest, FillsTheGivenRectangle) {
    const QRectF bounds = continuousRectangle(rectangle, radius).boundingRect();
    EXPECT_NEAR(bounds.left(), 10, 1e-6);
    EXPECT_NEAR(bounds.top(), 20, 1e-6);
    EXPECT_NEAR(bounds.right(), 1'010, 1e-6);
    EXPECT_NEAR(bounds.bottom(), 820, 1e-6);
}

TEST(ContinuousRectangleTest, CornerMidpointsMatchThoseOfCircularCorners) {
    const double inset = radius * (1 - std::sqrt(0.5));
    EXPECT_NEAR(depth(inset), inset, 0.1);
}

TEST(ContinuousRectangleTest, CurveStartsEarlierThanInACircularCorner) {
    EXPECT_NEAR(depth(1.42 * radius), 0, 0.01);
    EXPECT_GT(depth(1.3 * radius), 0.02);
    EXPECT_GT(depth(radius), 1);
    EXPECT_LT(depth(radius), 2);
}

// Where the outline is nearly horizontal, the second difference of its depth approximates its
// curvature. Here the curvature increases steadily; in a circular corner it would jump to 1/radius.
TEST(ContinuousRectangleTest, CurvatureIncreasesGraduallyFromZero) {
    constexpr double step = 8;
    const auto curvature = [&](double fromLeft) {
        return (depth(fromLeft - step) - 2 * depth(fromLeft) + depth(fromLeft + step)) /
               (step * step);
    };
    EXPECT_NEAR(curvature(160), 0, 1e-6);
    double before = 0;
    for (const double fromLeft : {130.0, 120.0, 110.0, 100.0, 90.0}) {
        EXPECT_GT(curvature(fromLeft), before + 0.0005) << fromLeft;
        EXPECT_LT(curvature(fromLeft), before + 0.004) << fromLeft;
        before = curvature(fromLeft);
    }
}

TEST(ContinuousRectangleTest, AllCornersAreIdentical) {
    const QPainterPath path = continuousRectangle(rectangle, radius);
    for (double x = 0.5; x < 150; x += 7) {
        for (double y = 0.25; y < 150; y += 7) {
            const bool within = path.contains(rectangle.topLeft() + QPointF(x, y));
            EXPECT_EQ(path.contains(rectangle.topRight() + QPointF(-x, y)), within);
            EXPECT_EQ(path.contains(rectangle.bottomLeft() + QPointF(x, -y)), within);
            EXPECT_EQ(path.contains(rectangle.bottomRight() + QPointF(-x, -y)), within);
            EXPECT_EQ(path.contains(rectangle.topLeft() + QPointF(y, x)), within);
        }
    }
}

TEST(ContinuousRectangleTest, ClampsAnExcessiveRadius) {
    const QRectF bounds = continuousRectangle(QRectF(0, 0, 90, 30), 1'000).boundingRect();
    EXPECT_NEAR(bounds.width(), 90, 1e-6);
    EXPECT_NEAR(bounds.height(), 30, 1e-6);
}

} // namespace

} // namespace glidemap::demo
