// Searches gestures by words in their names and categories, in both languages.
//
// Thread:  any.
// Errors:  none; without a match the result is empty.
#pragma once

#include "core/gesture_type.h"

#include <string_view>
#include <vector>

namespace glidemap {

// A category and its matching gestures; never empty.
struct FoundGestures {
    GestureCategory category{};
    std::vector<GestureType> gestures;

    friend bool operator==(const FoundGestures&, const FoundGestures&) = default;
};

// Returns the gestures that match every word of the text, ignoring case, in the catalogue's order.
// If the text has no words, returns all gestures.
std::vector<FoundGestures> findGestures(std::string_view text);

} // namespace glidemap
