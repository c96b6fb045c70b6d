#include "recognition/finger_changes.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

using Touches = std::vector<TouchPoint>;

TouchPoint finger(std::int32_t id, double x = 0.5) {
    return {id, x, 0.5, true};
}

TouchPoint hovering(std::int32_t id) {
    return {id, 0.5, 0.5, false};
}

TEST(FingerChangesTest, MotionIsNotAChange) {
    FingerChanges changes;
    EXPECT_EQ(changes.countWith({finger(1, 0.1), finger(2, 0.1)}), 1U);
    EXPECT_EQ(changes.countWith({finger(1, 0.9), finger(2, 0.2)}), 1U);
    EXPECT_EQ(changes.countWith({finger(1, 0.9), finger(2, 0.2)}), 1U);
}

TEST(FingerChangesTest, LandingAndLiftingAreChanges) {
    FingerChanges changes;
    EXPECT_EQ(changes.countWith({finger(1)}), 1U);
    EXPECT_EQ(changes.countWith({finger(1), finger(2)}), 2U);
    EXPECT_EQ(changes.countWith({finger(1), finger(3)}), 3U);
    EXPECT_EQ(changes.countWith({finger(1)}), 4U);
    EXPECT_EQ(changes.countWith({}), 5U);
    EXPECT_EQ(changes.countWith({}), 5U);
}

TEST(FingerChangesTest, HoveringContactsAreIgnored) {
    FingerChanges changes;
    EXPECT_EQ(changes.countWith({finger(1), hovering(7)}), 1U);
    EXPECT_EQ(changes.countWith({hovering(8), finger(1)}), 1U);
    EXPECT_EQ(changes.countWith({hovering(8), hovering(1)}), 2U);
}

TEST(FingerChangesTest, DifferentOrderIsAChange) {
    FingerChanges changes;
    EXPECT_EQ(changes.countWith({finger(1), finger(2)}), 1U);
    EXPECT_EQ(changes.countWith({finger(2), finger(1)}), 2U);
}

// The recognizer ignores a finger until it has a position, so for the recognizer the finger lands
// in a later report.
TEST(FingerChangesTest, FingerWithoutAPositionIsAChangeInThatReportAndTheNext) {
    for (const double odd :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        FingerChanges changes;
        EXPECT_EQ(changes.countWith({finger(1)}), 1U);
        EXPECT_EQ(changes.countWith({finger(1, odd)}), 2U);
        EXPECT_EQ(changes.countWith({finger(1, odd)}), 3U);
        EXPECT_EQ(changes.countWith({finger(1)}), 4U);
        EXPECT_EQ(changes.countWith({finger(1)}), 4U);
    }
}

TEST(FingerChangesTest, FirstReportAfterForgetIsAChange) {
    FingerChanges changes;
    EXPECT_EQ(changes.countWith({finger(1)}), 1U);
    changes.forget();
    EXPECT_EQ(changes.countWith({finger(1)}), 2U);
    EXPECT_EQ(changes.countWith({finger(1)}), 2U);
}

} // namespace
} // namespace glidemap
