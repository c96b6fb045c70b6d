// Port: notes that a platform adds to texts that were written for macOS. Each note is a separate
// line next to the text, in the requested language; empty if there is nothing to add.
//
// Thread:  the main thread; never waits.
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

    // The missing parts of the access that the program needs, and the next step if the system
    // cannot ask the user.
    virtual std::string missingAccess(const Lang& lang) const = 0;

    // The effect of the button that grants access, and whose password it asks for.
    virtual std::string accessButton(const Lang& lang) const = 0;

    virtual std::string launchAtLogin(const Lang& lang) const = 0;

    // The system's own use of this gesture, and where it is switched off.
    virtual std::string systemGesture(GestureType gesture, const Lang& lang) const = 0;

    // Notifies observers when missingAccess() changes.
    virtual Observable& changes() = 0;
};

} // namespace glidemap
