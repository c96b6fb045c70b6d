#include "kit/rows.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;

TEST(SessionTapsTest, FingersThatLandAndLiftTogetherMakeATap) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"two fingers", fingers(2).down().hold(0.2).up(), {twoFingerTap}},
        {"three fingers", fingers(3).down().hold(0.2).up(), {threeFingerTap}},
        {"four fingers", fingers(4).down().hold(0.2).up(), {fourFingerTap}},
        {"five fingers", fingers(5).down().hold(0.2).up(), {fiveFingerTap}},
        {"one finger in the middle of the pad", fingers(1).down().hold(0.2).up(), {}},
        {"six fingers", fingers(6).at(0.2, 0.5).down().hold(0.2).up(), {}},
        {"released just before the limit", fingers(2).down().hold(0.29).up(), {twoFingerTap}},
        {"held just past the limit", fingers(2).down().hold(0.31).up(), {}},
        {"drifting a little", fingers(2).down().moveBy(0.02, 0.02, 0.1).up(), {twoFingerTap}},
        {"drifting too far for a tap and not far enough for a swipe",
         fingers(2).down().moveBy(0.05, 0, 0.1).up(),
         {}},
    });
}

TEST(SessionTapsTest, FingerCountOfATapIsTheMaximumNumberOfSimultaneousFingers) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"a third finger arrives late",
         fingers(2).down().hold(0.1).add(1).hold(0.15).up(),
         {threeFingerTap}},
        {"fingers land one by one",
         fingers(1).down().hold(0.02).add(1).hold(0.02).add(1).hold(0.1).up(),
         {threeFingerTap}},
        {"fingers leave one by one",
         fingers(4).down().hold(0.1).lift(1).hold(0.02).lift(2).hold(0.02).up(),
         {fourFingerTap}},
        {"a finger leaves and another lands",
         fingers(2).down().hold(0.08).lift(1).hold(0.04).add(1).hold(0.08).up(),
         {twoFingerTap}},
        {"the third finger prolongs it too much",
         fingers(2).down().hold(0.17).add(1).hold(0.15).up(),
         {}},
    });
}

TEST(SessionTapsTest, RejectsATapLongerThan300Milliseconds) {
    for (const int count : {2, 3, 4, 5}) {
        const GestureType tap =
            std::vector{twoFingerTap, threeFingerTap, fourFingerTap, fiveFingerTap}.at(
                static_cast<std::size_t>(count - 2));
        const auto touch = fingers(count).down();
        expectRows(std::vector<Row>{
            {"below", touch.until(justBelow(0.3)).up(), {tap}},
            {"at the limit", touch.until(0.3).up(), {tap}},
            {"above", touch.until(justAbove(0.3)).up(), {}},
        });
    }
}

TEST(SessionTapsTest, RejectsADriftAboveTheMaximum) {
    const auto touch = fingersAt({{0, 0.5}, {0.3, 0.5}}).down();
    const auto drifting = [&](double drift) {
        return touch.moveFinger(0, drift, 0, 0.1);
    };
    expectRows(std::vector<Row>{
        {"below", drifting(justBelow(0.035)).up(), {twoFingerTap}},
        {"at the limit", drifting(0.035).up(), {twoFingerTap}},
        {"above", drifting(justAbove(0.035)).up(), {}},
        {"above, then back", drifting(0.036).moveFinger(0, -0.036, 0, 0.1).up(), {}},
        {"above, lifted before the others", drifting(0.036).liftFinger(0).hold(0.02).up(), {}},
    });
}

// The recognizer also checks for a pinch, a rotation and a swipe, and none of them matches.
TEST(SessionTapsTest, StillTouchThatIsTooLongForATapMakesNoGesture) {
    expectReportedGestures(fingers(2).down().hold(0.31).up(), {});
}

TEST(SessionTapsTest, TapIsReportedAtTheEndOfItsSession) {
    expectReportedGestures(fingers(2).down().until(0.25).up(), {{0.25, twoFingerTap}});
    expectReportedGestures(fingers(3).down().until(0.1).lift(1).until(0.25).up(),
                           {{0.25, threeFingerTap}});
}

TEST(SessionTapsTest, QuickTapsWithFiveFingersMakeNoDoubleTap) {
    const auto tap = fingers(5).down().hold(0.1).up();
    expectRowsInEveryVariant(std::vector<Row>{
        {"half a second apart", tap.wait(0.4).then(tap), {fiveFingerTap, fiveFingerTap}},
        {"quickly", tap.wait(0.2).then(tap), {fiveFingerTap, fiveFingerTap}},
        {"with every double tap bound",
         tap.wait(0.2).then(tap),
         {fiveFingerTap, fiveFingerTap},
         {2, 3, 4, 5}},
    });
    expectReportedGestures(tap, {{0.1, fiveFingerTap}}, {Through::recognizer, {2, 3, 4, 5}});
}

} // namespace
} // namespace glidemap
