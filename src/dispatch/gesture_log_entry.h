// An entry in the list of recent gestures.
//
// Thread:  any; a plain value.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"
#include "core/uuid.h"

#include <chrono>
#include <optional>
#include <string>

namespace glidemap {

using WallTime = std::chrono::system_clock::time_point;

struct GestureLogEntry {
    Uuid id = Uuid::generate();
    WallTime date;
    GestureType gesture{};
    // The action's text at the time of the gesture; absent if no binding matched.
    std::optional<std::string> matchedAction;
    // The name of the frontmost application; absent if unknown.
    std::optional<std::string> appName;

    friend bool operator==(const GestureLogEntry&, const GestureLogEntry&) = default;
};

} // namespace glidemap
