// The screen saver services that desktops provide on the session bus.
//
// Thread:  any.
// Errors:  none; on a given desktop, most of these services are missing.
#pragma once

#include "platform/linux/desktop/bus_request.h"

#include <span>
#include <string_view>
#include <vector>

namespace glidemap {

struct ScreenSaver {
    const char* name = nullptr; // the name of the service and of its interface
    const char* path = nullptr;
    const char* desktop = nullptr; // a value of XDG_CURRENT_DESKTOP; null if of no desktop
    bool takesMessage = false;     // Lock() requires a message for the locked screen

    BusMethod method(const char* itsName) const {
        return {Bus::session, name, path, name, itsName};
    }
};

std::span<const ScreenSaver> screenSavers();

// Returns the services in this order: those of the current desktop, given by the value of
// XDG_CURRENT_DESKTOP ("ubuntu:GNOME"); those that belong to no particular desktop; and those of
// other desktops.
std::vector<ScreenSaver> screenSaversFor(std::string_view currentDesktop);

// Whether D-Bus may start the service: it belongs to the current desktop or to no particular one,
// or the current desktop is unknown.
bool belongsTo(const ScreenSaver& saver, std::string_view currentDesktop);

} // namespace glidemap
