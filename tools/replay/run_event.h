// The events that a run reports.
//
// Units:   seconds of the records.
// Errors:  none; plain values.
#pragma once

#include "bindings/binding_action.h"
#include "core/gesture_type.h"
#include "dispatch/key_event_poster.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace glidemap::replay {

// The binding that a recognised gesture matched, and the frontmost application.
struct Routing {
    std::optional<std::string> bindingID; // absent if no binding matched
    std::optional<std::string> action;    // the text of the binding's action
    std::optional<std::string> app;       // the frontmost application's name
};

struct Recognised {
    double time = 0;
    GestureType gesture{};
    bool delivered = false; // passed the cooldown
    Routing routing;        // only for a delivered gesture
};

// A recorded button was pressed or released.
struct ButtonChanged {
    struct Click {
        GestureType gesture{};
        Routing routing;
    };

    double time = 0;
    std::int32_t button = 0;
    bool down = false;
    bool swallowed = false;     // the system would not receive the event
    std::optional<Click> click; // the click that consumed a swallowed press
};

// A key event that the program would post.
struct KeyPosted {
    double time = 0;
    KeyEvent event;
};

// An action that the program would perform without key events.
struct Performed {
    double time = 0;
    std::variant<LaunchApp, LockScreen, MissionControl> action;
};

using RunEvent = std::variant<Recognised, ButtonChanged, KeyPosted, Performed>;
using Listener = std::function<void(const RunEvent&)>;

} // namespace glidemap::replay
