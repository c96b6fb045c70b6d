// What can come out of a run.
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

// What became of a gesture behind the recognizer.
struct Routing {
    std::optional<std::string> bindingID; // absent where no binding matched
    std::optional<std::string> action;    // the binding's, in words
    std::optional<std::string> app;       // the frontmost application's name
};

struct Recognised {
    double time = 0;
    GestureType gesture{};
    bool delivered = false; // past the cooldown
    Routing routing;        // of one that was delivered
};

// A button of the recording went down or up.
struct ButtonChanged {
    struct Click {
        GestureType gesture{};
        Routing routing;
    };

    double time = 0;
    std::int32_t button = 0;
    bool down = false;
    bool swallowed = false;     // the system would not see it
    std::optional<Click> click; // what took it, where it is a press that was swallowed
};

// A key event that would be posted.
struct KeyPosted {
    double time = 0;
    KeyEvent event;
};

// An action, other than keys, that would be carried out.
struct Performed {
    double time = 0;
    std::variant<LaunchApp, LockScreen, MissionControl> action;
};

using Happening = std::variant<Recognised, ButtonChanged, KeyPosted, Performed>;
using Listener = std::function<void(const Happening&)>;

} // namespace glidemap::replay
