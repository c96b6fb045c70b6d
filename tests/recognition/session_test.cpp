#include "kit/rows.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;
using Frames = std::vector<TouchFrame>;
using Gestures = std::vector<GestureType>;

TouchFrame frameAt(double time, std::vector<TouchPoint> touches = {}) {
    return {time, std::move(touches)};
}

TouchPoint finger(std::int32_t id, double x, double y) {
    return {id, x, y, true};
}

TouchPoint hovering(std::int32_t id, double x, double y) {
    return {id, x, y, false};
}

TEST(SessionTest, LastsFromTheFirstLandingToTheLastLift) {
    expectRows(std::vector<Row>{
        {"fingers pass the pad from one to the other",
         fingers(1).down().hold(0.1).add(1).hold(0.05).liftFinger(0).hold(0.1).up(),
         {twoFingerTap}},
        {"the same, longer than a tap",
         fingers(1).down().hold(0.15).add(1).hold(0.05).liftFinger(0).hold(0.15).up(),
         {}},
    });
}

TEST(SessionTest, EndsWithTheFirstReportWithoutTouchingFingers) {
    const Frames frames = {
        frameAt(0, {finger(1, 0.3, 0.5), finger(2, 0.4, 0.5)}),
        frameAt(0.1, {hovering(1, 0.3, 0.5), hovering(2, 0.4, 0.5)}),
        frameAt(5, {}),
    };
    EXPECT_EQ(perform(frames), (std::vector<ReportedGesture>{{0.1, twoFingerTap}}));
}

TEST(SessionTest, EmptyReportsBetweenSessionsAreIgnored) {
    Frames frames = {frameAt(-1), frameAt(-0.5, {hovering(9, 0.5, 0.5)})};
    std::ranges::copy(fingers(2).down().hold(0.1).up().frames(), std::back_inserter(frames));
    frames.push_back(frameAt(0.2));
    frames.push_back(frameAt(0.3, {hovering(9, 0.5, 0.5)}));
    EXPECT_EQ(gesturesOf(perform(frames)), Gestures{twoFingerTap});
    EXPECT_EQ(gesturesOf(perform(Frames{frameAt(0), frameAt(1)})), Gestures());
    EXPECT_EQ(gesturesOf(perform(Frames{})), Gestures());
}

TEST(SessionTest, HoveringBeforeTheLandingDoesNotStartTheSession) {
    const Frames frames = {
        frameAt(0, {hovering(1, 0.3, 0.5)}),
        frameAt(5, {finger(1, 0.3, 0.5), finger(2, 0.4, 0.5)}),
        frameAt(5.25, {}),
    };
    EXPECT_EQ(gesturesOf(perform(frames)), Gestures{twoFingerTap});
}

TEST(SessionTest, LastsForMinutesWhileFingersRest) {
    const auto fingersRest = fingers(3).down().moveBy(0.3, 0, 0.3).hold(600);
    expectReportedGestures(fingersRest, {});
    expectReportedGestures(fingersRest.moveBy(-0.3, 0, 0.3).up(), {});
}

TEST(SessionTest, GestureDoesNotAffectTheNextSession) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"after a long press a tap",
         fingers(2).down().hold(1).up().wait(0.3).down().hold(0.1).up(),
         {twoFingerLongPress, twoFingerTap}},
        {"after five fingers two",
         fingers(5).down().hold(0.1).up().wait(0.3).then(fingers(2).down().hold(0.1).up()),
         {fiveFingerTap, twoFingerTap}},
        {"after a hold and tap a tap",
         fingers(1)
             .down()
             .hold(0.3)
             .addAt(0.6, 0.5)
             .hold(0.1)
             .lift(1)
             .hold(0.1)
             .up()
             .wait(0.3)
             .then(fingers(3).down().hold(0.1).up()),
         {fixAndTapRight, threeFingerTap}},
        {"after an empty report a swipe",
         fingers(4).down().hold(0.5).up().wait(0.1).down().moveBy(0.3, 0, 0.3).up(),
         {fourFingerSwipeRight}},
    });
}

TEST(SessionTest, FingerReplacedByAnotherInOneReportMakesNoGesture) {
    const auto corner = [](std::int32_t second) {
        return Frames{frameAt(0, {finger(1, 0.1, 0.1)}), frameAt(0.1, {finger(second, 0.1, 0.1)}),
                      frameAt(0.2)};
    };
    EXPECT_EQ(gesturesOf(perform(corner(1))), Gestures{cornerTapBottomLeft});
    // This makes two tracks, but never two simultaneous fingers.
    EXPECT_EQ(gesturesOf(perform(corner(2))), Gestures());
}

TEST(SessionTest, VanishedFingersEndBeforeOtherFingersAreMoved) {
    // In one report the tapping finger vanishes and the holding finger jumps away: at the end of
    // the tap, the holding finger was still down and had not moved.
    const Frames frames = {
        frameAt(0, {finger(1, 0.5, 0.5)}),
        frameAt(0.3, {finger(1, 0.5, 0.5), finger(2, 0.7, 0.5)}),
        frameAt(0.4, {finger(1, 0.9, 0.5)}),
        frameAt(0.5),
    };
    EXPECT_EQ(perform(frames), (std::vector<ReportedGesture>{{0.4, fixAndTapRight}}));
}

TEST(SessionTest, LastTouchingRecordOfAFingerInAReportSetsItsPosition) {
    const auto tapWith = [](TouchPoint second) {
        return Frames{frameAt(0, {finger(1, 0.1, 0.1)}),
                      frameAt(0.1, {finger(1, 0.1, 0.1), second}),
                      frameAt(0.15, {finger(1, 0.1, 0.1)}), frameAt(0.2)};
    };
    // Two touching records of one finger are counted as two fingers, but make only one track. A
    // hovering record is not counted.
    EXPECT_EQ(gesturesOf(perform(tapWith(finger(1, 0.11, 0.1)))), Gestures{twoFingerTap});
    EXPECT_EQ(gesturesOf(perform(tapWith(finger(1, 0.2, 0.1)))), Gestures());
    EXPECT_EQ(gesturesOf(perform(tapWith(hovering(1, 0.2, 0.1)))), Gestures{cornerTapBottomLeft});
}

TEST(SessionTest, MoreThanFiveFingersMakeNoGesture) {
    for (const int count : {6, 7, 10, 11}) {
        std::vector<Spot> spots;
        for (int one = 0; one < count; ++one) {
            spots.push_back({0.05 + 0.06 * one, 0.5});
        }
        expectReportedGestures(fingersAt(spots).down().hold(0.1).up(), {});
        expectReportedGestures(fingersAt(spots).down().moveBy(0.3, 0, 0.3).up(), {});
        expectReportedGestures(fingersAt(spots).down().hold(2).up(), {});
    }
}

TEST(SessionTest, FrameWithTheTimestampOfThePreviousFrameIsProcessed) {
    const Frames frames = {frameAt(1, {finger(1, 0.3, 0.5), finger(2, 0.4, 0.5)}), frameAt(1)};
    EXPECT_EQ(gesturesOf(perform(frames)), Gestures{twoFingerTap});
}

} // namespace
} // namespace glidemap
