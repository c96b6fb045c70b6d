// The kinds of action that a binding can have, in the order of the menu.
//
// Thread:  any. A label is in the interface language at the time of the call.
// Errors:  none.
#pragma once

#include "core/lang.h"

#include <array>
#include <cstdint>
#include <string>

namespace glidemap {

enum class ActionKind : std::uint8_t { keyboardShortcut, lockScreen, missionControl, launchApp };

inline constexpr std::array allActionKinds = {
    ActionKind::keyboardShortcut,
    ActionKind::lockScreen,
    ActionKind::missionControl,
    ActionKind::launchApp,
};

std::string label(ActionKind kind, const Lang& lang = Lang::shared());

} // namespace glidemap
