// The ten groups of gestures, as the settings window lists them.
//
// Thread:  any; the texts are in the current language unless the caller passes another.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

class Lang;
enum class GestureType : std::uint8_t;

enum class GestureCategory : std::uint8_t {
    circle,
    fixAndTap,
    tap,
    doubleTap,
    click,
    swipe,
    edgeSwipe,
    cornerTap,
    pinchRotate,
    longPress,
};

// All categories, in the order of the enumeration.
inline constexpr std::array allGestureCategories = {
    GestureCategory::circle,    GestureCategory::fixAndTap, GestureCategory::tap,
    GestureCategory::doubleTap, GestureCategory::click,     GestureCategory::swipe,
    GestureCategory::edgeSwipe, GestureCategory::cornerTap, GestureCategory::pinchRotate,
    GestureCategory::longPress,
};

std::string_view rawValue(GestureCategory category);
std::string displayName(GestureCategory category);
std::string displayName(GestureCategory category, const Lang& lang);

// The name of the category's icon in the system's symbol set.
std::string_view symbolName(GestureCategory category);

// Returns the gestures of the category, in the order of the enumeration.
std::vector<GestureType> gestures(GestureCategory category);

} // namespace glidemap
