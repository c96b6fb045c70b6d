#include "kit/printers.h"
#include "kit/script.h"
#include "made_tracks.h"
#include "recognition/circle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <string_view>
#include <vector>

namespace glidemap {
namespace {

using enum GestureType;
using std::numbers::pi;
using test::justAbove;
using test::justBelow;
using Path = std::vector<PadPoint>;

constexpr double second = 1;

struct Loop {
    double radius = 0.2;
    double sweep = 2 * pi; // positive is counterclockwise
    int points = 40;
    PadPoint centre = {0.5, 0.5};
};

// Returns a loop that is round on a pad 1.35 times as wide as high.
Path pathOf(const Loop& loop) {
    Path path;
    for (int point = 0; point < loop.points; ++point) {
        const double fraction = point / (loop.points - 1.0);
        const double angle = 0.3 + loop.sweep * fraction;
        path.push_back({loop.centre.x + loop.radius * std::cos(angle) / 1.35,
                        loop.centre.y + loop.radius * std::sin(angle)});
    }
    return path;
}

// Returns a path with one compass point for each letter. If opposite letters are equally frequent,
// the mean of the points is the origin, and the radii have no rounding errors.
Path compass(std::string_view letters, double eastWest, double northSouth) {
    Path path;
    for (const char letter : letters) {
        const double x = letter == 'E' ? eastWest : letter == 'W' ? -eastWest : 0;
        const double y = letter == 'N' ? northSouth : letter == 'S' ? -northSouth : 0;
        path.push_back({x / 1.35, y});
    }
    return path;
}

Radii radiiOf(const Path& path) {
    return radiiAround(centreOf(path), path);
}

TEST(CircleTest, DirectionSelectsTheGesture) {
    EXPECT_EQ(circleOf(pathOf({}), second), drawCircleCounterclockwise);
    EXPECT_EQ(circleOf(pathOf({.sweep = -2 * pi}), second), drawCircleClockwise);
}

TEST(CircleTest, NeverReturnsTheAnyDirectionCircle) {
    for (int sweep = -20; sweep <= 20; ++sweep) {
        EXPECT_NE(circleOf(pathOf({.sweep = sweep / 2.0}), second), drawCircle);
    }
}

TEST(CircleTest, RequiresTwelvePoints) {
    EXPECT_EQ(circleOf({}, second), std::nullopt);
    EXPECT_EQ(circleOf(pathOf({.points = 11}), second), std::nullopt);
    EXPECT_EQ(circleOf(pathOf({.points = 12}), second), drawCircleCounterclockwise);
    EXPECT_EQ(circleOf(pathOf({.points = 13}), second), drawCircleCounterclockwise);
    EXPECT_EQ(circleOf(pathOf({.points = 2000}), second), drawCircleCounterclockwise);
}

TEST(CircleTest, AcceptsOnlyDurationsFrom150MillisecondsTo3Seconds) {
    const Path path = pathOf({});
    EXPECT_EQ(circleOf(path, justBelow(0.15)), std::nullopt);
    EXPECT_EQ(circleOf(path, 0.15), drawCircleCounterclockwise);
    EXPECT_EQ(circleOf(path, justAbove(0.15)), drawCircleCounterclockwise);
    EXPECT_EQ(circleOf(path, justBelow(3.0)), drawCircleCounterclockwise);
    EXPECT_EQ(circleOf(path, 3.0), drawCircleCounterclockwise);
    EXPECT_EQ(circleOf(path, justAbove(3.0)), std::nullopt);
}

TEST(CircleTest, PathIsMeasuredInThePadsPhysicalProportions) {
    const Path path = pathOf({.points = 41, .centre = {0.4, 0.3}});
    const Path ring(path.begin(), path.end() - 1); // without the closing point
    const PadPoint centre = centreOf(ring);
    EXPECT_NEAR(centre.x, 0.4 * 1.35, 1e-12);
    EXPECT_NEAR(centre.y, 0.3, 1e-12);
    EXPECT_NEAR(radiiAround(centre, ring).mean, 0.2, 1e-12);
    EXPECT_NEAR(radiiAround(centre, ring).deviation, 0, 1e-12);
    EXPECT_NEAR(sweptAngle(centre, path), 2 * pi, 1e-12);
}

TEST(CircleTest, RadiusDeviationIncludesAllPointsOfThePath) {
    const Path path = compass("ENNNWWWSSSEE", 0.125, 0.375);
    EXPECT_EQ(centreOf(path), (PadPoint{0, 0}));
    EXPECT_EQ(radiiOf(path).mean, 0.25);
    EXPECT_EQ(radiiOf(path).deviation, 0.125);
}

TEST(CircleTest, SweptAngleAddsTurnsAndSubtractsReversedMovement) {
    const auto swept = [](std::string_view letters) {
        return sweptAngle({0, 0}, compass(letters, 1, 1));
    };
    EXPECT_NEAR(swept("ENWSE"), 2 * pi, 1e-12);
    EXPECT_NEAR(swept("ENWSENWSE"), 4 * pi, 1e-12);
    EXPECT_NEAR(swept("ESWNE"), -2 * pi, 1e-12);
    EXPECT_NEAR(swept("ENWNE"), 0, 1e-12);
    EXPECT_NEAR(swept("E"), 0, 1e-12);
    EXPECT_NEAR(swept("EW"), pi, 1e-12); // half a turn is not wrapped
}

TEST(CircleTest, RejectsAMeanRadiusBelowTheMinimum) {
    const Path exact = compass("ENNNNWWWSSSSEE", 0.05, 0.05);
    ASSERT_EQ(radiiOf(exact).mean, 0.05);
    EXPECT_EQ(circleOf(exact, second), drawCircleCounterclockwise);
    const auto path = [](double radius) {
        return compass("ENNNNWWWSSSSEE", radius, radius);
    };
    const auto [below, reached] = turningPoint(
        0.04, 0.06, [&](double radius) { return circleOf(path(radius), second).has_value(); });
    EXPECT_LT(radiiOf(path(below)).mean, 0.05);
    EXPECT_GE(radiiOf(path(reached)).mean, 0.05);
    EXPECT_NEAR(reached, 0.05, 1e-15);
}

TEST(CircleTest, RejectsAMeanRadiusAboveTheMaximum) {
    const auto path = [](double radius) {
        return compass("ENNNNWWWSSSSEE", radius, radius);
    };
    const auto [above, reached] = turningPoint(
        0.6, 0.5, [&](double radius) { return circleOf(path(radius), second).has_value(); });
    EXPECT_GT(radiiOf(path(above)).mean, 0.55);
    EXPECT_LE(radiiOf(path(reached)).mean, 0.55);
    EXPECT_NEAR(reached, 0.55, 1e-15);
    const Path exact = compass("EENNNNNWWWWSSSSSEE", 0.55, 0.55);
    ASSERT_EQ(radiiOf(exact).mean, 0.55);
    EXPECT_EQ(circleOf(exact, second), drawCircleCounterclockwise);
}

TEST(CircleTest, RejectsARadiusDeviationOf35PercentOrMore) {
    const auto path = [](double oddness) {
        return compass("ENNNWWWSSSEE", 0.3 * (1 - oddness), 0.3 * (1 + oddness));
    };
    const auto ratio = [&](double oddness) {
        return radiiOf(path(oddness)).deviation / radiiOf(path(oddness)).mean;
    };
    const auto [rough, round] = turningPoint(
        0.4, 0.3, [&](double oddness) { return circleOf(path(oddness), second).has_value(); });
    EXPECT_GE(ratio(rough), 0.35);
    EXPECT_LT(ratio(round), 0.35);
    EXPECT_NEAR(round, 0.35, 1e-15);
    // Exactly 0.35 is already too much.
    ASSERT_EQ(ratio(0.35), 0.35);
    EXPECT_EQ(circleOf(path(0.35), second), std::nullopt);
}

TEST(CircleTest, RejectsASweptAngleBelowTheMinimum) {
    // Runs from the east to `end`, through north, west and south. The last point lies so far inside
    // the circle that the gap stays below its maximum. The point opposite to the last one keeps the
    // mean at the origin.
    const auto path = [](double end) {
        const PadPoint last = {0.08 * std::cos(end) / 1.35, 0.08 * std::sin(end)};
        Path points = compass("ENNNN", 0.2, 0.2);
        points.push_back(PadPoint{} - last);
        std::ranges::copy(compass("WSSSS", 0.2, 0.2), std::back_inserter(points));
        points.push_back(last);
        return points;
    };
    const auto clockwise = [&](double end) {
        Path points = path(end);
        std::ranges::for_each(points, [](PadPoint& point) { point.y = -point.y; });
        return points;
    };
    const auto swept = [](const Path& points) {
        return sweptAngle(centreOf(points), points);
    };

    const auto [below, reached] =
        turningPoint(4.73, 5, [&](double end) { return circleOf(path(end), second).has_value(); });
    EXPECT_LT(swept(path(below)), 4.8);
    EXPECT_GE(swept(path(reached)), 4.8);
    EXPECT_NEAR(reached, 4.8, 1e-14);
    EXPECT_EQ(circleOf(path(reached), second), drawCircleCounterclockwise);
    EXPECT_EQ(circleOf(clockwise(reached), second), drawCircleClockwise);
    EXPECT_EQ(circleOf(clockwise(below), second), std::nullopt);
}

TEST(CircleTest, RejectsAGapBetweenTheEndsAboveTheMaximum) {
    const auto path = [](double sweep) {
        return pathOf({.sweep = sweep});
    };
    const auto gap = [&](double sweep) {
        return distance(stretched(path(sweep).front()), stretched(path(sweep).back())) /
               radiiOf(path(sweep)).mean;
    };
    const auto [open, closed] = turningPoint(
        4.5, 6, [&](double sweep) { return circleOf(path(sweep), second).has_value(); });
    EXPECT_NEAR(gap(open), 1.2, 1e-12);
    EXPECT_NEAR(gap(closed), 1.2, 1e-12);
    EXPECT_GE(gap(open), gap(closed));
    // The path is well inside all other limits.
    EXPECT_GT(sweptAngle(centreOf(path(open)), path(open)), 4.81);
}

TEST(CircleTest, AcceptsAGapBetweenTheEndsAtExactlyTheMaximum) {
    // 7, 24 and 25 are the sides of a right triangle, so the last point lies on the circle of
    // radius 25. That point is 30 units, or 1.2 radii, from the first point. With this unit,
    // dividing by 1.35 and then multiplying by 1.35 is exact.
    const double unit = 33 / 4096.0;
    const PadPoint last = {24 * unit / 1.35, 7 * unit};
    Path path = compass("NNN", 0, 25 * unit);
    path.insert(path.end(), 3, PadPoint{} - last);
    std::ranges::copy(compass("SSS", 0, 25 * unit), std::back_inserter(path));
    path.insert(path.end(), 3, last);
    ASSERT_EQ(radiiOf(path).mean, 25 * unit);
    ASSERT_EQ(distance(stretched(path.front()), stretched(path.back())), 1.2 * (25 * unit));
    EXPECT_EQ(circleOf(path, second), drawCircleCounterclockwise);
}

TEST(CircleTest, AcceptsMoreThanOneTurn) {
    EXPECT_EQ(circleOf(pathOf({.sweep = 4 * pi, .points = 80}), second),
              drawCircleCounterclockwise);
}

TEST(CircleTest, RejectsAnArcTracedThereAndBack) {
    Path path = pathOf({.sweep = 5, .points = 30});
    Path back(path.rbegin(), path.rend());
    path.insert(path.end(), back.begin(), back.end());
    EXPECT_EQ(circleOf(path, second), std::nullopt);
}

TEST(CircleTest, RejectsAStraightLine) {
    Path path;
    for (int point = 0; point < 40; ++point) {
        path.push_back({0.1 + point * 0.02, 0.5});
    }
    EXPECT_EQ(circleOf(path, second), std::nullopt);
}

TEST(CircleTest, RejectsASinglePoint) {
    EXPECT_EQ(circleOf(Path(20, PadPoint{0.5, 0.5}), second), std::nullopt);
}

TEST(CircleTest, RejectsNonFinitePositions) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    Path path = pathOf({});
    EXPECT_EQ(circleOf(path, nan), std::nullopt);
    path[7].x = nan;
    EXPECT_EQ(circleOf(path, second), std::nullopt);
    path[7].x = std::numeric_limits<double>::infinity();
    EXPECT_EQ(circleOf(path, second), std::nullopt);
}

} // namespace
} // namespace glidemap
