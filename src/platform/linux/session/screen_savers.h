// The screen saver services that desktops have on the session's bus.
//
// Thread:  any.
// Errors:  none; most of them are missing on any one desktop.
#pragma once

#include "platform/linux/session/bus_errand.h"

#include <span>

namespace glidemap {

struct ScreenSaver {
    const char* name = nullptr; // of the service and of its interface
    const char* path = nullptr;
    bool takesMessage = false; // Lock() shows one on the locked screen

    BusMethod method(const char* itsName) const {
        return {Bus::session, name, path, name, itsName};
    }
};

std::span<const ScreenSaver> screenSavers();

} // namespace glidemap
