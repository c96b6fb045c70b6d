// Finds gestures by what somebody types: the words of their names and of their categories, in either
// language, whichever the interface has.
//
// Thread:  any.
// Errors:  none; what nothing matches finds nothing.
#pragma once

#include "core/gesture_type.h"

#include <string_view>
#include <vector>

namespace glidemap {

// Never empty.
struct FoundGestures {
    GestureCategory category{};
    std::vector<GestureType> gestures;

    friend bool operator==(const FoundGestures&, const FoundGestures&) = default;
};

// All of them for a text without words, in the catalogue's order. Each word must be found somewhere;
// upper and lower case are one.
std::vector<FoundGestures> findGestures(std::string_view text);

} // namespace glidemap
