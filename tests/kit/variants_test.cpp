#include "kit/variants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <set>

namespace glidemap::test {
namespace {

using enum GestureType;

std::vector<TouchFrame> someFrames() {
    return fingers(2).at(0.2, 0.3).down().hold(0.05).up().frames();
}

bool sameTouching(const std::vector<TouchFrame>& one, const std::vector<TouchFrame>& other) {
    std::vector<std::vector<TouchPoint>> left;
    std::vector<std::vector<TouchPoint>> right;
    std::ranges::transform(one, std::back_inserter(left), &TouchFrame::touching);
    std::ranges::transform(other, std::back_inserter(right), &TouchFrame::touching);
    return left == right;
}

TEST(VariantsTest, HoveringContactsDoNotTouch) {
    auto frames = someFrames();
    addHoveringContacts(frames);
    for (const TouchFrame& frame : frames) {
        EXPECT_EQ(frame.touches.size(), frame.touching().size() + 2);
    }
    frames.erase(frames.begin());
    frames.pop_back();
    EXPECT_TRUE(sameTouching(frames, someFrames()));
}

TEST(VariantsTest, JitterIsSmallAndReproducible) {
    auto frames = someFrames();
    auto again = frames;
    jitter(frames, 7, 0.001);
    jitter(again, 7, 0.001);
    EXPECT_TRUE(sameTouching(frames, again));
    EXPECT_FALSE(sameTouching(frames, someFrames()));
    for (const TouchFrame& frame : frames) {
        for (const TouchPoint& touch : frame.touches) {
            EXPECT_NEAR(touch.y, 0.3, 0.001);
        }
    }
}

TEST(VariantsTest, ShufflingKeepsThePathOfEveryFinger) {
    auto frames = someFrames();
    shuffleContacts(frames, 1);
    std::map<std::int32_t, std::set<double>> placesOf;
    bool reordered = false;
    for (const TouchFrame& frame : frames) {
        for (const TouchPoint& touch : frame.touches) {
            placesOf[touch.id].insert(touch.x);
        }
        reordered = reordered || (!frame.touches.empty() &&
                                  frame.touches.front().id != frames.front().touches.front().id);
    }
    ASSERT_EQ(placesOf.size(), 2U);
    for (const auto& [id, places] : placesOf) {
        EXPECT_GT(std::abs(id), 2);
        EXPECT_EQ(places.size(), 1U);
    }
    EXPECT_TRUE(reordered);
}

TEST(VariantsTest, MirroringMapsEveryGestureToItsOpposite) {
    struct Row {
        GestureType gesture;
        GestureType sideways;
        GestureType upDown;
    };
    const Row rows[] = {
        {drawCircleClockwise, drawCircleCounterclockwise, drawCircleCounterclockwise},
        {rotateCounterclockwise, rotateClockwise, rotateClockwise},
        {fixAndTapRight, fixAndTapLeft, fixAndTapRight},
        {fixAndTapAbove, fixAndTapAbove, fixAndTapBelow},
        {threeFingerSwipeLeft, threeFingerSwipeRight, threeFingerSwipeLeft},
        {fiveFingerSwipeDown, fiveFingerSwipeDown, fiveFingerSwipeUp},
        {edgeSwipeFromTop, edgeSwipeFromTop, edgeSwipeFromBottom},
        {cornerTapTopLeft, cornerTapTopRight, cornerTapBottomLeft},
        {twoFingerTap, twoFingerTap, twoFingerTap},
        {pinchIn, pinchIn, pinchIn},
    };
    for (const auto& [gesture, sideways, upDown] : rows) {
        EXPECT_EQ(mirroredSideways(gesture), sideways) << rawValue(gesture);
        EXPECT_EQ(mirroredUpDown(gesture), upDown) << rawValue(gesture);
    }
    for (const GestureType gesture : allGestureTypes) {
        EXPECT_EQ(mirroredSideways(mirroredSideways(gesture)), gesture);
        EXPECT_EQ(mirroredUpDown(mirroredUpDown(gesture)), gesture);
    }
}

TEST(VariantsTest, MirroringMovesAFrameToTheOppositeSide) {
    auto frames = someFrames();
    mirrorSideways(frames);
    EXPECT_EQ(frames.front().touches.front().x, 0.8);
    mirrorUpDown(frames);
    EXPECT_EQ(frames.front().touches.front().y, 0.7);
}

} // namespace
} // namespace glidemap::test
