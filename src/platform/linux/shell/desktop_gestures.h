// Describes which touchpad gestures GNOME and KDE Plasma use themselves, and where the user can
// switch them off.
//
// Thread:  any.
// Errors:  none; the text is empty on other desktops and for gestures that the desktop does not
//          use.
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
