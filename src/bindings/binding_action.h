// The action of a binding.
//
// Thread:  any; a plain value.
// Errors:  none.
#pragma once

#include "bindings/key_shortcut.h"
#include "core/lang.h"

#include <string>
#include <string_view>
#include <variant>

namespace glidemap {

struct LockScreen {
    friend bool operator==(const LockScreen&, const LockScreen&) = default;
};

// The overview of all windows.
struct MissionControl {
    friend bool operator==(const MissionControl&, const MissionControl&) = default;
};

// Launches or activates the application. The name is only for display.
struct LaunchApp {
    std::string bundleID;
    std::string name;

    friend bool operator==(const LaunchApp&, const LaunchApp&) = default;
};

using BindingAction = std::variant<KeyShortcut, LockScreen, MissionControl, LaunchApp>;

// The kind's name in the bindings file; does not include what the action types or opens.
std::string_view kindOf(const BindingAction& action);

// In the language that is current at the call.
std::string displayString(const BindingAction& action, const Lang& lang = Lang::shared());

} // namespace glidemap
