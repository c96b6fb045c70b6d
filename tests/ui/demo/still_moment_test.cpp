#include "ui/demo/gesture_demo.h"
#include "ui/demo/still_moment.h"

#include <gtest/gtest.h>

#include <cmath>

namespace glidemap::demo {

namespace {

// The still moment is the last one before the fingers start to fade. For a click, it is 1.2 s,
// because its ring is strongest at 1.196 s. The ring's strength is (0.14 + 0.24 r) · 0.8 (1 - r),
// where r is the progress of the ripple; the maximum is at r = 5/24.
double expectedMoment(GestureType gesture) {
    switch (category(gesture)) {
    case GestureCategory::circle:
        return 2.07;
    case GestureCategory::fixAndTap:
    case GestureCategory::cornerTap:
        return 1.38;
    case GestureCategory::tap:
        return 1.4;
    case GestureCategory::doubleTap:
        return 1.55;
    case GestureCategory::click:
        return 1.2;
    case GestureCategory::swipe:
        return 1.62;
    case GestureCategory::edgeSwipe:
        return 1.57;
    case GestureCategory::pinchRotate:
        return gesture <= GestureType::pinchOut ? 1.77 : 1.82;
    case GestureCategory::longPress:
        return 2.05;
    }
    return -1;
}

TEST(StillMomentTest, IsTheExpectedTimeForEachGesture) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        EXPECT_NEAR(stillMoment(gesture), expectedMoment(gesture), 1e-9);
    }
}

TEST(StillMomentTest, ShowsEveryFinger) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        for (const Finger& finger : frame(gesture, stillMoment(gesture)).fingers) {
            EXPECT_GT(finger.opacity, 0.99);
        }
    }
}

TEST(StillMomentTest, ShowsTheCompleteTrail) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        const std::vector<Point> last = frame(gesture, loopDuration).trail;
        const std::vector<Point> still = frame(gesture, stillMoment(gesture)).trail;
        ASSERT_EQ(still.size(), last.size());
        for (std::size_t index = 0; index < last.size(); ++index) {
            EXPECT_NEAR(still[index].x, last[index].x, 1e-3);
            EXPECT_NEAR(still[index].y, last[index].y, 1e-3);
        }
    }
}

TEST(StillMomentTest, ShowsTheRingOfClicksAndLongPresses) {
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        const GestureCategory of = category(gesture);
        const bool presses = of == GestureCategory::click || of == GestureCategory::longPress;
        const Frame still = frame(gesture, stillMoment(gesture));
        ASSERT_EQ(still.ring.has_value(), presses);
        if (presses) {
            EXPECT_GT(still.ring->opacity, 0.5);
        }
    }
}

} // namespace

} // namespace glidemap::demo
