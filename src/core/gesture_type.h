// The vocabulary: the closed list of the 48 gestures that can be recognised, clicked or bound.
//
// A raw value is what a bindings file holds, so raw values never change. The set is deliberate: no
// one-finger tap, no five-finger double tap, click or long press; pinch and rotation have no finger
// counts.
//
// Thread:  any; the texts are those of the current language at the moment they are asked for,
//          unless another is named.
#pragma once

#include "core/gesture_category.h"

#include <array>
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

// In the order of declaration.
inline constexpr std::array allGestureTypes = {
    GestureType::drawCircle,
    GestureType::drawCircleClockwise,
    GestureType::drawCircleCounterclockwise,
    GestureType::fixAndTapRight,
    GestureType::fixAndTapLeft,
    GestureType::fixAndTapAbove,
    GestureType::fixAndTapBelow,
    GestureType::twoFingerTap,
    GestureType::threeFingerTap,
    GestureType::fourFingerTap,
    GestureType::fiveFingerTap,
    GestureType::twoFingerDoubleTap,
    GestureType::threeFingerDoubleTap,
    GestureType::fourFingerDoubleTap,
    GestureType::twoFingerClick,
    GestureType::threeFingerClick,
    GestureType::fourFingerClick,
    GestureType::twoFingerSwipeLeft,
    GestureType::twoFingerSwipeRight,
    GestureType::twoFingerSwipeUp,
    GestureType::twoFingerSwipeDown,
    GestureType::threeFingerSwipeLeft,
    GestureType::threeFingerSwipeRight,
    GestureType::threeFingerSwipeUp,
    GestureType::threeFingerSwipeDown,
    GestureType::fourFingerSwipeLeft,
    GestureType::fourFingerSwipeRight,
    GestureType::fourFingerSwipeUp,
    GestureType::fourFingerSwipeDown,
    GestureType::fiveFingerSwipeLeft,
    GestureType::fiveFingerSwipeRight,
    GestureType::fiveFingerSwipeUp,
    GestureType::fiveFingerSwipeDown,
    GestureType::edgeSwipeFromLeft,
    GestureType::edgeSwipeFromRight,
    GestureType::edgeSwipeFromTop,
    GestureType::edgeSwipeFromBottom,
    GestureType::cornerTapTopLeft,
    GestureType::cornerTapTopRight,
    GestureType::cornerTapBottomLeft,
    GestureType::cornerTapBottomRight,
    GestureType::pinchIn,
    GestureType::pinchOut,
    GestureType::rotateClockwise,
    GestureType::rotateCounterclockwise,
    GestureType::twoFingerLongPress,
    GestureType::threeFingerLongPress,
    GestureType::fourFingerLongPress,
};

// The gesture with exactly this raw value, if there is one.
std::optional<GestureType> gestureTypeFromRawValue(std::string_view rawValue);

std::string_view rawValue(GestureType gesture);
GestureCategory category(GestureType gesture);
std::string displayName(GestureType gesture);
std::string displayName(GestureType gesture, const Lang& lang);

// One sentence on how the gesture is made and what it may clash with.
std::string detail(GestureType gesture);
std::string detail(GestureType gesture, const Lang& lang);

// The icon, by its name in the system's symbol set; one for each category.
std::string_view symbolName(GestureType gesture);

} // namespace glidemap
