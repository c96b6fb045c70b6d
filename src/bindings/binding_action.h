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

// Shows the overview of all windows.
struct MissionControl {
    friend bool operator==(const MissionControl&, const MissionControl&) = default;
};

// Launches the application, or activates it if it is running. `name` is for display only.
struct LaunchApp {
    std::string bundleID;
    std::string name;

    friend bool operator==(const LaunchApp&, const LaunchApp&) = default;
};

using BindingAction = std::variant<KeyShortcut, LockScreen, MissionControl, LaunchApp>;

// Returns the action's kind as the bindings file names it, without the shortcut or the application.
std::string_view kindOf(const BindingAction& action);

// Returns the action's text for the user, in the language that `lang` has at the time of the call.
std::string displayString(const BindingAction& action, const Lang& lang = Lang::shared());

} // namespace glidemap
