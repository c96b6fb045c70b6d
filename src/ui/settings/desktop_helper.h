// Port: a component, such as a shell extension, that some desktops need to report the frontmost
// application. Without it, bindings for one application do not work there.
//
// Thread:  the main thread. state() does not wait: it returns the last known state.
// Errors:  as text from the system.
#pragma once

#include "core/observable.h"

#include <optional>
#include <string>

namespace glidemap {

class DesktopHelper {
public:
    enum class State {
        notNeeded, // the desktop reports it directly, or the helper is running
        missing,   // the user can install it
        installing,
        atNextLogin, // installed; works after the next login
        failed,      // see lastError()
    };

    DesktopHelper() = default;
    DesktopHelper(const DesktopHelper&) = delete;
    DesktopHelper& operator=(const DesktopHelper&) = delete;
    virtual ~DesktopHelper() = default;

    virtual State state() const = 0;
    virtual std::optional<std::string> lastError() const = 0;

    // Starts the installation; state() shows the result.
    virtual void install() = 0;

    virtual Observable& changes() = 0;
};

} // namespace glidemap
