// Port: a platform's additions to texts that were written for macOS. Each note is shown as a
// separate line next to such a text. A note is in the requested language, and empty if there is
// nothing to add.
//
// Thread:  the main thread; never blocks.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"
#include "core/lang.h"
#include "core/observable.h"

#include <string>

namespace glidemap {

class SystemNotes {
public:
    SystemNotes() = default;
    SystemNotes(const SystemNotes&) = delete;
    SystemNotes& operator=(const SystemNotes&) = delete;
    virtual ~SystemNotes() = default;

    // Returns which part of the required access is missing and, if the system cannot ask the user
    // for it, what to do next.
    virtual std::string missingAccess(const Lang& lang) const = 0;

    // Returns what the button that grants access does, and whose password the system asks for.
    virtual std::string accessButton(const Lang& lang) const = 0;

    virtual std::string launchAtLogin(const Lang& lang) const = 0;

    // Returns what the system itself uses this gesture for, and where the user can switch that off.
    virtual std::string systemGesture(GestureType gesture, const Lang& lang) const = 0;

    // Notifies observers when missingAccess() may have changed.
    virtual Observable& changes() = 0;
};

} // namespace glidemap
