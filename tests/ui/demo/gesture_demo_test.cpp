#include "expected_frames.h"
#include "ui/demo/gesture_demo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <string>

namespace glidemap::demo {

namespace {

constexpr double exactness = 1e-9;

std::string nameOf(GestureType gesture) {
    return std::string(rawValue(gesture));
}

// Calls `check` with the frame at each millisecond of the loop, until a check fails.
template <class Check>
void throughTheLoop(GestureType gesture, Check check) {
    for (int millisecond = 0; millisecond < 2'600; ++millisecond) {
        const double t = millisecond / 1'000.0;
        SCOPED_TRACE(nameOf(gesture) + " at " + std::to_string(t));
        check(t, frame(gesture, t));
        if (testing::Test::HasFailure()) {
            return;
        }
    }
}

void expectSame(const Point& found, const Point& expected) {
    EXPECT_NEAR(found.x, expected.x, exactness);
    EXPECT_NEAR(found.y, expected.y, exactness);
}

void expectSame(const Frame& found, const Frame& expected) {
    ASSERT_EQ(found.fingers.size(), expected.fingers.size());
    for (std::size_t index = 0; index < expected.fingers.size(); ++index) {
        SCOPED_TRACE("finger " + std::to_string(index));
        expectSame(found.fingers[index].position, expected.fingers[index].position);
        EXPECT_NEAR(found.fingers[index].opacity, expected.fingers[index].opacity, exactness);
        EXPECT_NEAR(found.fingers[index].scale, expected.fingers[index].scale, exactness);
    }
    ASSERT_EQ(found.trail.size(), expected.trail.size());
    for (std::size_t index = 0; index < expected.trail.size(); ++index) {
        SCOPED_TRACE("trail " + std::to_string(index));
        expectSame(found.trail[index], expected.trail[index]);
    }
    ASSERT_EQ(found.ring.has_value(), expected.ring.has_value());
    if (expected.ring) {
        expectSame(found.ring->center, expected.ring->center);
        EXPECT_NEAR(found.ring->radius, expected.ring->radius, exactness);
        EXPECT_NEAR(found.ring->opacity, expected.ring->opacity, exactness);
    }
}

class ExpectedFramesTest : public testing::TestWithParam<GestureType> {};

TEST_P(ExpectedFramesTest, DemoMatchesTheExpectedFrames) {
    constexpr int fewest = 10;
    int compared = 0;
    for (const test::ExpectedFrame& expected : test::expectedFrames()) {
        if (expected.gesture == GetParam()) {
            SCOPED_TRACE("t = " + std::to_string(expected.t));
            expectSame(frame(expected.gesture, expected.t), expected.frame);
            ++compared;
        }
    }
    EXPECT_GE(compared, fewest);
}

INSTANTIATE_TEST_SUITE_P(AllGestures, ExpectedFramesTest, testing::ValuesIn(allGestureTypes),
                         [](const auto& row) { return nameOf(row.param); });

TEST(GestureDemoTest, LoopStartsWithAnEmptyPad) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        for (const Finger& finger : frame(gesture, 0).fingers) {
            EXPECT_EQ(finger.opacity, 0);
        }
        EXPECT_FALSE(frame(gesture, 0).ring.has_value());
    }
}

TEST(GestureDemoTest, AllFingersAreLiftedAtTheEndOfTheLoop) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        for (const double t : {2.4, 2.5, 2.599, 2.599'999'9, 2.6}) {
            for (const Finger& finger : frame(gesture, t).fingers) {
                EXPECT_NEAR(finger.opacity, 0, exactness) << t;
            }
            EXPECT_FALSE(frame(gesture, t).ring.has_value()) << t;
        }
    }
}

TEST(GestureDemoTest, FingerCountIsConstantAndAllFingersAreFullyVisibleAtSomeMoment) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        const std::size_t count = frame(gesture, 0).fingers.size();
        double clearest = 0;
        throughTheLoop(gesture, [&](double, const Frame& shown) {
            ASSERT_EQ(shown.fingers.size(), count);
            const auto faintest = std::min_element(
                shown.fingers.begin(), shown.fingers.end(),
                [](const Finger& a, const Finger& b) { return a.opacity < b.opacity; });
            clearest = std::max(clearest, faintest->opacity);
        });
        EXPECT_NEAR(clearest, 1, exactness);
    }
}

TEST(GestureDemoTest, FingersAndTrailsStayOnThePadAndRingsHaveAValidSize) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        throughTheLoop(gesture, [](double, const Frame& shown) {
            for (const Finger& finger : shown.fingers) {
                EXPECT_TRUE(finger.opacity >= 0 && finger.opacity <= 1) << finger.opacity;
                EXPECT_TRUE(finger.scale > 0.7 && finger.scale < 1.31) << finger.scale;
                EXPECT_TRUE(finger.position.x > 0 && finger.position.x < 1) << finger.position.x;
                EXPECT_TRUE(finger.position.y > 0 && finger.position.y < 1) << finger.position.y;
            }
            for (const Point& point : shown.trail) {
                EXPECT_TRUE(point.x > 0 && point.x < 1 && point.y > 0 && point.y < 1);
            }
            if (shown.ring) {
                EXPECT_TRUE(shown.ring->opacity >= 0 && shown.ring->opacity <= 0.8);
                EXPECT_TRUE(shown.ring->radius > 0 && shown.ring->radius < 0.5);
            }
        });
    }
}

// Neither a finger's position nor its opacity jumps within a millisecond.
TEST(GestureDemoTest, FingersMoveSmoothly) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        Frame before = frame(gesture, 0);
        throughTheLoop(gesture, [&](double, const Frame& shown) {
            for (std::size_t index = 0; index < shown.fingers.size(); ++index) {
                const Finger& was = before.fingers[index];
                const Finger& is = shown.fingers[index];
                EXPECT_LT(
                    std::hypot(is.position.x - was.position.x, is.position.y - was.position.y),
                    0.002);
                EXPECT_LT(std::abs(is.opacity - was.opacity), 0.02);
            }
            before = shown;
        });
    }
}

TEST(GestureDemoTest, TreatsNaNAsTheStartOfTheLoop) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        expectSame(frame(gesture, std::numeric_limits<double>::quiet_NaN()), frame(gesture, 0));
    }
}

TEST(GestureDemoTest, ShowsNoFingerOutsideTheLoop) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        for (const double t : {-std::numeric_limits<double>::infinity(), -1e300, -0.1, 2.7, 1e300,
                               std::numeric_limits<double>::infinity()}) {
            for (const Finger& finger : frame(gesture, t).fingers) {
                EXPECT_EQ(finger.opacity, 0) << t;
            }
            EXPECT_FALSE(frame(gesture, t).ring.has_value()) << t;
        }
    }
}

TEST(GestureDemoTest, ExpectedFramesCoverEveryGesture) {
    std::map<GestureType, int> frames;
    for (const test::ExpectedFrame& expected : test::expectedFrames()) {
        ++frames[expected.gesture];
    }
    EXPECT_EQ(frames.size(), allGestureTypes.size());
}

const GestureType circles[] = {GestureType::drawCircle, GestureType::drawCircleClockwise,
                               GestureType::drawCircleCounterclockwise};

TEST(CircleTrailTest, HasFrom3To61Points) {
    for (const GestureType gesture : circles) {
        throughTheLoop(gesture, [](double, const Frame& shown) {
            EXPECT_GE(shown.trail.size(), 3U);
            EXPECT_LE(shown.trail.size(), 61U);
        });
    }
}

TEST(CircleTrailTest, IsAtTheTopOfTheCircleBeforeTheFingerMoves) {
    for (const GestureType gesture : circles) {
        for (const double t : {0.0, 0.15, 0.2, 0.249, 0.25}) {
            const std::vector<Point> trail = frame(gesture, t).trail;
            ASSERT_EQ(trail.size(), 3U);
            for (const Point& point : trail) {
                expectSame(point, {0.5, 0.2});
            }
        }
    }
}

TEST(CircleTrailTest, IsAFullCircleAfterOneTurn) {
    for (const GestureType gesture : circles) {
        const Frame shown = frame(gesture, 2.06);
        ASSERT_EQ(shown.trail.size(), 61U);
        expectSame(shown.trail.front(), {0.5, 0.2});
        expectSame(shown.trail.back(), {0.5, 0.2});
        expectSame(shown.trail[30], {0.5, 0.8});
        expectSame(shown.fingers[0].position, {0.5, 0.2});
    }
}

TEST(CircleTrailTest, EndsAtTheFinger) {
    for (const GestureType gesture : circles) {
        throughTheLoop(gesture, [](double, const Frame& shown) {
            expectSame(shown.trail.back(), shown.fingers[0].position);
        });
    }
}

TEST(GestureDemoTest, CircleFirstMovesRightUnlessCounterclockwise) {
    EXPECT_GT(frame(GestureType::drawCircle, 0.6).fingers[0].position.x, 0.51);
    EXPECT_GT(frame(GestureType::drawCircleClockwise, 0.6).fingers[0].position.x, 0.51);
    EXPECT_LT(frame(GestureType::drawCircleCounterclockwise, 0.6).fingers[0].position.x, 0.49);
}

double distance(const Point& from, const Point& to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

// Returns the swipes in the middle of the pad and those from its edges.
std::vector<GestureType> everySwipe() {
    std::vector<GestureType> swipes = gestures(GestureCategory::swipe);
    const std::vector<GestureType> edges = gestures(GestureCategory::edgeSwipe);
    swipes.insert(swipes.end(), edges.begin(), edges.end());
    return swipes;
}

TEST(GestureDemoTest, SwipeTrailAppearsAfterTwoPercentOfTheSwipe) {
    for (const GestureType gesture : everySwipe()) {
        SCOPED_TRACE(rawValue(gesture));
        const auto middle = [](const Frame& shown) {
            return shown.fingers[shown.fingers.size() / 2].position;
        };
        const Point start = middle(frame(gesture, 0));
        const double length = distance(start, middle(frame(gesture, 2.6)));
        int without = 0;
        int with = 0;
        throughTheLoop(gesture, [&](double, const Frame& shown) {
            if (distance(start, middle(shown)) <= 0.02 * length) {
                EXPECT_TRUE(shown.trail.empty());
                ++without;
            } else {
                ASSERT_EQ(shown.trail.size(), 2U);
                expectSame(shown.trail[0], start);
                expectSame(shown.trail[1], middle(shown));
                ++with;
            }
        });
        EXPECT_GT(without, 500);
        EXPECT_GT(with, 1'000);
    }
}

TEST(ClickRippleTest, ExistsOnlyBetweenItsStartAndEnd) {
    const GestureType gesture = GestureType::twoFingerClick;
    for (const double t : {0.5, 1.049, 1.05, 1.751, 2.0}) {
        EXPECT_FALSE(frame(gesture, t).ring.has_value()) << t;
    }
    for (const double t : {1.0501, 1.4, 1.7499}) {
        EXPECT_TRUE(frame(gesture, t).ring.has_value()) << t;
    }
}

TEST(LongPressRingTest, ExistsFromTheStartOfTheHoldUntilTheFingersDisappear) {
    const GestureType gesture = GestureType::threeFingerLongPress;
    for (const double t : {0.5, 0.599, 0.6, 2.2, 2.201}) {
        EXPECT_FALSE(frame(gesture, t).ring.has_value()) << t;
    }
    for (const double t : {0.601, 1.0, 2.199}) {
        EXPECT_TRUE(frame(gesture, t).ring.has_value()) << t;
    }
}

} // namespace

} // namespace glidemap::demo
