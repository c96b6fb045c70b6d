// Lists the screen saver services that desktops provide on the session bus.
//
// Thread:  any.
// Errors:  none; on a given desktop most of them are missing.
#pragma once

#include "platform/linux/desktop/bus_request.h"

#include <span>
#include <string_view>
#include <vector>

namespace glidemap {

struct ScreenSaver {
    const char* name = nullptr; // both the service and its interface
    const char* path = nullptr;
    const char* desktop = nullptr; // a value of XDG_CURRENT_DESKTOP; null for all desktops
    bool takesMessage = false;     // Lock() takes a message for the locked screen

    BusMethod method(const char* itsName) const {
        return {Bus::session, name, path, name, itsName};
    }
};

std::span<const ScreenSaver> screenSavers();

// Sorted: the services of this desktop, by the value of XDG_CURRENT_DESKTOP ("ubuntu:GNOME"), then
// those of all desktops, then those of others.
std::vector<ScreenSaver> screenSaversFor(std::string_view currentDesktop);

// Whether the service may be started: it belongs to this desktop or to all, or the desktop is
// unknown.
bool belongsTo(const ScreenSaver& saver, std::string_view currentDesktop);

} // namespace glidemap
