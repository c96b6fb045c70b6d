// The fixed list of the 48 gestures that can be recognised and bound.
//
// Bindings files store the raw values, so raw values never change. The list deliberately has no
// one-finger tap and no five-finger double tap, click or long press. Pinches and rotations exist
// for two fingers only.
//
// Thread:  any; the texts are in the language that is current when the function is called, unless
//          the caller passes another.
#pragma once

#include "core/gesture_category.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

class Lang;

enum class GestureType : std::uint8_t {
    drawCircle,
    drawCircleClockwise,
    drawCircleCounterclockwise,
    fixAndTapRight,
    fixAndTapLeft,
    fixAndTapAbove,
    fixAndTapBelow,
    twoFingerTap,
    threeFingerTap,
    fourFingerTap,
    fiveFingerTap,
    twoFingerDoubleTap,
    threeFingerDoubleTap,
    fourFingerDoubleTap,
    twoFingerClick,
    threeFingerClick,
    fourFingerClick,
    twoFingerSwipeLeft,
    twoFingerSwipeRight,
    twoFingerSwipeUp,
    twoFingerSwipeDown,
    threeFingerSwipeLeft,
    threeFingerSwipeRight,
    threeFingerSwipeUp,
    threeFingerSwipeDown,
    fourFingerSwipeLeft,
    fourFingerSwipeRight,
    fourFingerSwipeUp,
    fourFingerSwipeDown,
    fiveFingerSwipeLeft,
    fiveFingerSwipeRight,
    fiveFingerSwipeUp,
    fiveFingerSwipeDown,
    edgeSwipeFromLeft,
    edgeSwipeFromRight,
    edgeSwipeFromTop,
    edgeSwipeFromBottom,
    cornerTapTopLeft,
    cornerTapTopRight,
    cornerTapBottomLeft,
    cornerTapBottomRight,
    pinchIn,
    pinchOut,
    rotateClockwise,
    rotateCounterclockwise,
    twoFingerLongPress,
    threeFingerLongPress,
    fourFingerLongPress,
};

// The direction in which a gesture moves, or the side on which it lies.
enum class GestureDirection : std::uint8_t {
    none,
    any, // a circle in either direction
    left,
    right,
    up,
    down,
    topLeft,
    topRight,
    bottomLeft,
    bottomRight,
    clockwise,
    counterclockwise,
    inwards,
    outwards,
};

// Everything about a gesture except its detail text, which similar gestures share.
struct GestureRow {
    GestureType type;
    std::string_view rawValue;
    GestureCategory category;
    int fingerCount;
    // A swipe: the direction of movement. An edge swipe: the edge where it starts. A hold and tap:
    // the side of the tap, seen from the holding finger.
    GestureDirection direction;
    // The name of the icon in the system's symbol set. All gestures of a category share it.
    std::string_view symbol;
    std::string_view english;
    std::string_view chinese;
};

// In the order of the enumeration. A new gesture needs a row here and limits in its recognizer.
inline constexpr std::array gestureTable = std::to_array<GestureRow>({
    {GestureType::drawCircle, "drawCircle", GestureCategory::circle, 1, GestureDirection::any,
     "circle.dashed", "Draw Circle (any direction)", "单指画圆（任意方向）"},
    {GestureType::drawCircleClockwise, "drawCircleClockwise", GestureCategory::circle, 1,
     GestureDirection::clockwise, "circle.dashed", "Draw Circle (clockwise)", "单指画圆（顺时针）"},
    {GestureType::drawCircleCounterclockwise, "drawCircleCounterclockwise", GestureCategory::circle,
     1, GestureDirection::counterclockwise, "circle.dashed", "Draw Circle (counter-clockwise)",
     "单指画圆（逆时针）"},
    {GestureType::fixAndTapRight, "fixAndTapRight", GestureCategory::fixAndTap, 2,
     GestureDirection::right, "hand.point.right", "Hold + Tap Right", "单指固定 + 右侧点按"},
    {GestureType::fixAndTapLeft, "fixAndTapLeft", GestureCategory::fixAndTap, 2,
     GestureDirection::left, "hand.point.right", "Hold + Tap Left", "单指固定 + 左侧点按"},
    {GestureType::fixAndTapAbove, "fixAndTapAbove", GestureCategory::fixAndTap, 2,
     GestureDirection::up, "hand.point.right", "Hold + Tap Above", "单指固定 + 上方点按"},
    {GestureType::fixAndTapBelow, "fixAndTapBelow", GestureCategory::fixAndTap, 2,
     GestureDirection::down, "hand.point.right", "Hold + Tap Below", "单指固定 + 下方点按"},
    {GestureType::twoFingerTap, "twoFingerTap", GestureCategory::tap, 2, GestureDirection::none,
     "hand.tap", "Two-Finger Tap", "两指轻点"},
    {GestureType::threeFingerTap, "threeFingerTap", GestureCategory::tap, 3, GestureDirection::none,
     "hand.tap", "Three-Finger Tap", "三指轻点"},
    {GestureType::fourFingerTap, "fourFingerTap", GestureCategory::tap, 4, GestureDirection::none,
     "hand.tap", "Four-Finger Tap", "四指轻点"},
    {GestureType::fiveFingerTap, "fiveFingerTap", GestureCategory::tap, 5, GestureDirection::none,
     "hand.tap", "Five-Finger Tap", "五指轻点"},
    {GestureType::twoFingerDoubleTap, "twoFingerDoubleTap", GestureCategory::doubleTap, 2,
     GestureDirection::none, "hand.tap.fill", "Two-Finger Double Tap", "两指双击轻点"},
    {GestureType::threeFingerDoubleTap, "threeFingerDoubleTap", GestureCategory::doubleTap, 3,
     GestureDirection::none, "hand.tap.fill", "Three-Finger Double Tap", "三指双击轻点"},
    {GestureType::fourFingerDoubleTap, "fourFingerDoubleTap", GestureCategory::doubleTap, 4,
     GestureDirection::none, "hand.tap.fill", "Four-Finger Double Tap", "四指双击轻点"},
    {GestureType::twoFingerClick, "twoFingerClick", GestureCategory::click, 2,
     GestureDirection::none, "cursorarrow.click.2", "Two-Finger Click", "两指按压点击"},
    {GestureType::threeFingerClick, "threeFingerClick", GestureCategory::click, 3,
     GestureDirection::none, "cursorarrow.click.2", "Three-Finger Click", "三指按压点击"},
    {GestureType::fourFingerClick, "fourFingerClick", GestureCategory::click, 4,
     GestureDirection::none, "cursorarrow.click.2", "Four-Finger Click", "四指按压点击"},
    {GestureType::twoFingerSwipeLeft, "twoFingerSwipeLeft", GestureCategory::swipe, 2,
     GestureDirection::left, "hand.draw", "Two-Finger Swipe Left", "两指左滑"},
    {GestureType::twoFingerSwipeRight, "twoFingerSwipeRight", GestureCategory::swipe, 2,
     GestureDirection::right, "hand.draw", "Two-Finger Swipe Right", "两指右滑"},
    {GestureType::twoFingerSwipeUp, "twoFingerSwipeUp", GestureCategory::swipe, 2,
     GestureDirection::up, "hand.draw", "Two-Finger Swipe Up", "两指上滑"},
    {GestureType::twoFingerSwipeDown, "twoFingerSwipeDown", GestureCategory::swipe, 2,
     GestureDirection::down, "hand.draw", "Two-Finger Swipe Down", "两指下滑"},
    {GestureType::threeFingerSwipeLeft, "threeFingerSwipeLeft", GestureCategory::swipe, 3,
     GestureDirection::left, "hand.draw", "Three-Finger Swipe Left", "三指左滑"},
    {GestureType::threeFingerSwipeRight, "threeFingerSwipeRight", GestureCategory::swipe, 3,
     GestureDirection::right, "hand.draw", "Three-Finger Swipe Right", "三指右滑"},
    {GestureType::threeFingerSwipeUp, "threeFingerSwipeUp", GestureCategory::swipe, 3,
     GestureDirection::up, "hand.draw", "Three-Finger Swipe Up", "三指上滑"},
    {GestureType::threeFingerSwipeDown, "threeFingerSwipeDown", GestureCategory::swipe, 3,
     GestureDirection::down, "hand.draw", "Three-Finger Swipe Down", "三指下滑"},
    {GestureType::fourFingerSwipeLeft, "fourFingerSwipeLeft", GestureCategory::swipe, 4,
     GestureDirection::left, "hand.draw", "Four-Finger Swipe Left", "四指左滑"},
    {GestureType::fourFingerSwipeRight, "fourFingerSwipeRight", GestureCategory::swipe, 4,
     GestureDirection::right, "hand.draw", "Four-Finger Swipe Right", "四指右滑"},
    {GestureType::fourFingerSwipeUp, "fourFingerSwipeUp", GestureCategory::swipe, 4,
     GestureDirection::up, "hand.draw", "Four-Finger Swipe Up", "四指上滑"},
    {GestureType::fourFingerSwipeDown, "fourFingerSwipeDown", GestureCategory::swipe, 4,
     GestureDirection::down, "hand.draw", "Four-Finger Swipe Down", "四指下滑"},
    {GestureType::fiveFingerSwipeLeft, "fiveFingerSwipeLeft", GestureCategory::swipe, 5,
     GestureDirection::left, "hand.draw", "Five-Finger Swipe Left", "五指左滑"},
    {GestureType::fiveFingerSwipeRight, "fiveFingerSwipeRight", GestureCategory::swipe, 5,
     GestureDirection::right, "hand.draw", "Five-Finger Swipe Right", "五指右滑"},
    {GestureType::fiveFingerSwipeUp, "fiveFingerSwipeUp", GestureCategory::swipe, 5,
     GestureDirection::up, "hand.draw", "Five-Finger Swipe Up", "五指上滑"},
    {GestureType::fiveFingerSwipeDown, "fiveFingerSwipeDown", GestureCategory::swipe, 5,
     GestureDirection::down, "hand.draw", "Five-Finger Swipe Down", "五指下滑"},
    {GestureType::edgeSwipeFromLeft, "edgeSwipeFromLeft", GestureCategory::edgeSwipe, 1,
     GestureDirection::left, "arrow.right.to.line", "Edge Swipe from Left", "从左边缘滑入"},
    {GestureType::edgeSwipeFromRight, "edgeSwipeFromRight", GestureCategory::edgeSwipe, 1,
     GestureDirection::right, "arrow.right.to.line", "Edge Swipe from Right", "从右边缘滑入"},
    {GestureType::edgeSwipeFromTop, "edgeSwipeFromTop", GestureCategory::edgeSwipe, 1,
     GestureDirection::up, "arrow.right.to.line", "Edge Swipe from Top", "从上边缘滑入"},
    {GestureType::edgeSwipeFromBottom, "edgeSwipeFromBottom", GestureCategory::edgeSwipe, 1,
     GestureDirection::down, "arrow.right.to.line", "Edge Swipe from Bottom", "从下边缘滑入"},
    {GestureType::cornerTapTopLeft, "cornerTapTopLeft", GestureCategory::cornerTap, 1,
     GestureDirection::topLeft, "viewfinder", "Top-Left Corner Tap", "左上角轻点"},
    {GestureType::cornerTapTopRight, "cornerTapTopRight", GestureCategory::cornerTap, 1,
     GestureDirection::topRight, "viewfinder", "Top-Right Corner Tap", "右上角轻点"},
    {GestureType::cornerTapBottomLeft, "cornerTapBottomLeft", GestureCategory::cornerTap, 1,
     GestureDirection::bottomLeft, "viewfinder", "Bottom-Left Corner Tap", "左下角轻点"},
    {GestureType::cornerTapBottomRight, "cornerTapBottomRight", GestureCategory::cornerTap, 1,
     GestureDirection::bottomRight, "viewfinder", "Bottom-Right Corner Tap", "右下角轻点"},
    {GestureType::pinchIn, "pinchIn", GestureCategory::pinchRotate, 2, GestureDirection::inwards,
     "arrow.down.left.and.arrow.up.right", "Pinch In", "两指捏合（收拢）"},
    {GestureType::pinchOut, "pinchOut", GestureCategory::pinchRotate, 2, GestureDirection::outwards,
     "arrow.down.left.and.arrow.up.right", "Pinch Out", "两指张开（放大）"},
    {GestureType::rotateClockwise, "rotateClockwise", GestureCategory::pinchRotate, 2,
     GestureDirection::clockwise, "arrow.down.left.and.arrow.up.right", "Rotate Clockwise",
     "两指顺时针旋转"},
    {GestureType::rotateCounterclockwise, "rotateCounterclockwise", GestureCategory::pinchRotate, 2,
     GestureDirection::counterclockwise, "arrow.down.left.and.arrow.up.right",
     "Rotate Counter-clockwise", "两指逆时针旋转"},
    {GestureType::twoFingerLongPress, "twoFingerLongPress", GestureCategory::longPress, 2,
     GestureDirection::none, "hand.raised", "Two-Finger Long Press", "两指长按"},
    {GestureType::threeFingerLongPress, "threeFingerLongPress", GestureCategory::longPress, 3,
     GestureDirection::none, "hand.raised", "Three-Finger Long Press", "三指长按"},
    {GestureType::fourFingerLongPress, "fourFingerLongPress", GestureCategory::longPress, 4,
     GestureDirection::none, "hand.raised", "Four-Finger Long Press", "四指长按"},
});

constexpr const GestureRow& rowOf(GestureType gesture) {
    return gestureTable[static_cast<std::size_t>(gesture)];
}

static_assert(std::ranges::all_of(gestureTable,
                                  [](const GestureRow& row) { return &rowOf(row.type) == &row; }),
              "the rows are in the order of the enumeration");

// All gestures, in the order of the enumeration.
inline constexpr auto allGestureTypes = [] {
    std::array<GestureType, gestureTable.size()> types{};
    std::ranges::transform(gestureTable, types.begin(), &GestureRow::type);
    return types;
}();

constexpr std::string_view rawValue(GestureType gesture) {
    return rowOf(gesture).rawValue;
}
constexpr GestureCategory category(GestureType gesture) {
    return rowOf(gesture).category;
}
constexpr int fingerCount(GestureType gesture) {
    return rowOf(gesture).fingerCount;
}
constexpr GestureDirection direction(GestureType gesture) {
    return rowOf(gesture).direction;
}
constexpr bool isClick(GestureType gesture) {
    return category(gesture) == GestureCategory::click;
}

// Returns the gesture of this category with this many fingers in this direction, or nullopt.
constexpr std::optional<GestureType>
gestureFor(GestureCategory category, int fingerCount,
           GestureDirection direction = GestureDirection::none) {
    for (const GestureRow& row : gestureTable) {
        if (row.category == category && row.fingerCount == fingerCount &&
            row.direction == direction) {
            return row.type;
        }
    }
    return std::nullopt;
}

// Returns the gesture with exactly this raw value, or nullopt.
std::optional<GestureType> gestureTypeFromRawValue(std::string_view rawValue);

std::string displayName(GestureType gesture);
std::string displayName(GestureType gesture, const Lang& lang);

// Returns a short text: how to make the gesture, and the system gestures with which it may
// conflict.
std::string detail(GestureType gesture);
std::string detail(GestureType gesture, const Lang& lang);

constexpr std::string_view symbolName(GestureType gesture) {
    return rowOf(gesture).symbol;
}

} // namespace glidemap
