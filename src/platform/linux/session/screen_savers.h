// The screen saver services that desktops have on the session's bus.
//
// Thread:  any.
// Errors:  none; most of them are missing on any one desktop.
#pragma once

#include "platform/linux/session/bus_errand.h"

#include <span>
#include <string_view>
#include <vector>

namespace glidemap {

struct ScreenSaver {
    const char* name = nullptr; // of the service and of its interface
    const char* path = nullptr;
    const char* desktop = nullptr; // as XDG_CURRENT_DESKTOP names it; null belongs to any
    bool takesMessage = false;     // Lock() shows one on the locked screen

    BusMethod method(const char* itsName) const {
        return {Bus::session, name, path, name, itsName};
    }
};

std::span<const ScreenSaver> screenSavers();

// Those of the session's own desktop first, by the value of XDG_CURRENT_DESKTOP ("ubuntu:GNOME"), then
// those of any, then the other desktops'.
std::vector<ScreenSaver> screenSaversFor(std::string_view currentDesktop);

// Whether starting it may be what the user means: it is of this desktop or of any, or the desktop is
// not known.
bool belongsTo(const ScreenSaver& saver, std::string_view currentDesktop);

} // namespace glidemap
