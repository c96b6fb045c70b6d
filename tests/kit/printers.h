// Lets GoogleTest print gestures by name.
#pragma once

#include "core/gesture_type.h"

#include <ostream>

namespace glidemap {

inline void PrintTo(GestureType gesture, std::ostream* stream) {
    *stream << rawValue(gesture);
}

} // namespace glidemap
