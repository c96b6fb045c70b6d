// Tests each of the 44 gestures that touches alone can make, in many variants of hands and pads.
#include "kit/rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;

Script tapOf(int count) {
    return fingers(count).down().hold(0.12).up();
}

Script swipeOf(int count, double dx, double dy) {
    return fingers(count).at(0.35, 0.5).down().moveBy(dx, dy, 0.25).up();
}

Script edgeSwipe(Spot from, double dx, double dy) {
    return fingers(1).at(from.x, from.y).down().moveBy(dx, dy, 0.3).up();
}

Script cornerTap(Spot place) {
    return fingers(1).at(place.x, place.y).down().hold(0.12).up();
}

Script holdAndTap(double dx, double dy) {
    return fingersAt({{0.5, 0.5}})
        .down()
        .hold(0.4)
        .addAt(0.5 + dx, 0.5 + dy)
        .hold(0.12)
        .lift(1)
        .hold(0.3)
        .up();
}

const auto pair = fingersAt({{0.45, 0.4}, {0.55, 0.6}}).down();

std::vector<Row> tapRows() {
    std::vector<Row> rows;
    const GestureType taps[] = {twoFingerTap, threeFingerTap, fourFingerTap, fiveFingerTap};
    const GestureType doubleTaps[] = {twoFingerDoubleTap, threeFingerDoubleTap,
                                      fourFingerDoubleTap};
    const GestureType presses[] = {twoFingerLongPress, threeFingerLongPress, fourFingerLongPress};
    for (int count = 2; count <= 5; ++count) {
        rows.push_back({"tap", tapOf(count), {taps[count - 2]}});
    }
    for (int count = 2; count <= 4; ++count) {
        rows.push_back({"bound double tap",
                        tapOf(count).wait(0.15).then(tapOf(count)),
                        {doubleTaps[count - 2]},
                        {count}});
        rows.push_back({"long press", fingers(count).down().hold(1).up(), {presses[count - 2]}});
    }
    return rows;
}

std::vector<Row> swipeRows() {
    const GestureType swipes[][4] = {
        {twoFingerSwipeLeft, twoFingerSwipeRight, twoFingerSwipeUp, twoFingerSwipeDown},
        {threeFingerSwipeLeft, threeFingerSwipeRight, threeFingerSwipeUp, threeFingerSwipeDown},
        {fourFingerSwipeLeft, fourFingerSwipeRight, fourFingerSwipeUp, fourFingerSwipeDown},
        {fiveFingerSwipeLeft, fiveFingerSwipeRight, fiveFingerSwipeUp, fiveFingerSwipeDown},
    };
    std::vector<Row> rows;
    for (int count = 2; count <= 5; ++count) {
        const auto& [left, right, up, down] = swipes[count - 2];
        rows.push_back({"swipe left", swipeOf(count, -0.3, 0.03), {left}});
        rows.push_back({"swipe right", swipeOf(count, 0.3, -0.03), {right}});
        rows.push_back({"swipe up", swipeOf(count, 0.03, 0.3), {up}});
        rows.push_back({"swipe down", swipeOf(count, -0.03, -0.3), {down}});
    }
    return rows;
}

std::vector<Row> otherRows() {
    const auto top = fingers(1).at(0.5, 0.75).down();
    return {
        {"circle", top.circle(0.22, 1.05, 0.9).up(), {drawCircleCounterclockwise}},
        {"circle", top.circle(0.22, -1.05, 0.9).up(), {drawCircleClockwise}},
        {"hold and tap", holdAndTap(0.2, 0.05), {fixAndTapRight}},
        {"hold and tap", holdAndTap(-0.2, -0.05), {fixAndTapLeft}},
        {"hold and tap", holdAndTap(0.05, 0.2), {fixAndTapAbove}},
        {"hold and tap", holdAndTap(-0.05, -0.2), {fixAndTapBelow}},
        {"edge swipe", edgeSwipe({0.01, 0.5}, 0.35, 0.05), {edgeSwipeFromLeft}},
        {"edge swipe", edgeSwipe({0.99, 0.5}, -0.35, 0.05), {edgeSwipeFromRight}},
        {"edge swipe", edgeSwipe({0.5, 0.99}, 0.05, -0.35), {edgeSwipeFromTop}},
        {"edge swipe", edgeSwipe({0.5, 0.01}, 0.05, 0.35), {edgeSwipeFromBottom}},
        {"corner tap", cornerTap({0.08, 0.92}), {cornerTapTopLeft}},
        {"corner tap", cornerTap({0.92, 0.92}), {cornerTapTopRight}},
        {"corner tap", cornerTap({0.08, 0.08}), {cornerTapBottomLeft}},
        {"corner tap", cornerTap({0.92, 0.08}), {cornerTapBottomRight}},
        {"pinch", pair.spreadBy(0.4, 0.4).up(), {pinchIn}},
        {"pinch", pair.spreadBy(1.9, 0.4).up(), {pinchOut}},
        {"rotation", pair.turnBy(-1, 0.4).up(), {rotateClockwise}},
        {"rotation", pair.turnBy(1, 0.4).up(), {rotateCounterclockwise}},
    };
}

std::vector<Row> allRows() {
    std::vector<Row> rows = tapRows();
    for (const auto& more : {swipeRows(), otherRows()}) {
        rows.insert(rows.end(), more.begin(), more.end());
    }
    return rows;
}

TEST(AllGesturesTest, EveryVariantOfEveryGestureIsRecognised) {
    expectRowsInEveryVariant(allRows());
}

TEST(AllGesturesTest, EveryGestureThatTouchesAloneCanMakeIsCovered) {
    std::set<GestureType> shown;
    for (const Row& row : allRows()) {
        shown.insert(row.expected.begin(), row.expected.end());
    }
    std::set<GestureType> missing;
    for (const GestureType gesture : allGestureTypes) {
        if (!shown.contains(gesture)) {
            missing.insert(gesture);
        }
    }
    // A click needs the touchpad's button, and a drawn circle is always recognised with its
    // direction, so touches alone cannot make these gestures.
    EXPECT_EQ(missing, (std::set{drawCircle, twoFingerClick, threeFingerClick, fourFingerClick}));
}

TEST(AllGesturesTest, GesturesInSequenceDoNotAffectEachOther) {
    Script all = fingers(1);
    std::vector<GestureType> expected;
    for (const Row& row : allRows()) {
        if (row.boundDoubleTaps.empty()) {
            all = all.wait(0.5).then(row.script);
            expected.insert(expected.end(), row.expected.begin(), row.expected.end());
        }
    }
    EXPECT_EQ(gesturesOf(perform(all)), expected);
    EXPECT_EQ(gesturesOf(perform(all, {Through::engine, {}})), expected);
}

} // namespace
} // namespace glidemap
