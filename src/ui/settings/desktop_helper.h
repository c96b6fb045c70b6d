// Port: a piece of the desktop without which the frontmost application cannot be told there, such as
// an extension of its shell. Bindings for one application do not work until it is installed.
//
// Thread:  the main thread. state() does not wait: it answers what was found last.
// Errors:  as text, in the system's words.
#pragma once

#include "core/observable.h"

#include <optional>
#include <string>

namespace glidemap {

class DesktopHelper {
public:
    enum class State {
        notNeeded, // the desktop tells by itself, or the helper runs
        missing,   // the user can have it installed
        installing,
        atNextLogin, // installed, and works from the next login
        failed,      // see lastError()
    };

    DesktopHelper() = default;
    DesktopHelper(const DesktopHelper&) = delete;
    DesktopHelper& operator=(const DesktopHelper&) = delete;
    virtual ~DesktopHelper() = default;

    virtual State state() const = 0;
    virtual std::optional<std::string> lastError() const = 0;

    // Starts; what comes of it shows in the state.
    virtual void install() = 0;

    virtual Observable& changes() = 0;
};

} // namespace glidemap
