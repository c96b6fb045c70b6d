// One line of the short log of recent gestures.
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
    // the action's text at that time; absent if no binding matched
    std::optional<std::string> matchedAction;
    // the name of the frontmost application; absent if unknown
    std::optional<std::string> appName;

    friend bool operator==(const GestureLogEntry&, const GestureLogEntry&) = default;
};

} // namespace glidemap
