// Port: a component, such as a shell extension, that some desktops need to report the frontmost
// application. Without it, bindings for single applications do not work on these desktops.
//
// Thread:  the main thread. state() does not block: it returns the last known state.
// Errors:  returned by lastError(), as text from the system.
#pragma once

#include "core/observable.h"

#include <optional>
#include <string>

namespace glidemap {

class DesktopHelper {
public:
    enum class State {
        // The desktop itself reports the frontmost application, or the helper is running.
        notNeeded,
        missing, // the user can install it
        installing,
        atNextLogin, // installed, but works only after the next login
        failed,      // see lastError()
    };

    DesktopHelper() = default;
    DesktopHelper(const DesktopHelper&) = delete;
    DesktopHelper& operator=(const DesktopHelper&) = delete;
    virtual ~DesktopHelper() = default;

    virtual State state() const = 0;
    virtual std::optional<std::string> lastError() const = 0;

    // Starts the installation. Afterwards, state() reports the result.
    virtual void install() = 0;

    virtual Observable& changes() = 0;
};

} // namespace glidemap
