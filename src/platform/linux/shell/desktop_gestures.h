// Describes the touchpad gestures that GNOME and KDE Plasma keep for themselves, and where they are
// switched off.
//
// Thread:  any.
// Errors:  none; empty for other desktops and for gestures that the desktop does not use.
#pragma once

#include "core/gesture_type.h"
#include "core/lang.h"

#include <string>
#include <vector>

namespace glidemap {

struct DesktopSession {
    std::vector<std::string> desktops; // the values of XDG_CURRENT_DESKTOP
    bool isWayland = false;
};

DesktopSession currentDesktopSession();

std::string desktopGestureNote(GestureType gesture, const DesktopSession& session,
                               const Lang& lang);

} // namespace glidemap
