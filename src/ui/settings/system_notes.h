// Port: what the system that the program runs on adds to texts that speak of another one. Each note is a line of its own beside
// the text, in the language that is asked for; empty where there is nothing to add.
//
// Thread:  the main thread; no question waits.
// Errors:  none.
#pragma once

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

    // What is missing of the access that the program needs, and what to do where the system could not ask for it.
    virtual std::string missingAccess(const Lang& lang) const = 0;

    // What the button does that is to give access, and whose password it asks for.
    virtual std::string accessButton(const Lang& lang) const = 0;

    virtual std::string launchAtLogin(const Lang& lang) const = 0;

    // Of missingAccess().
    virtual Observable& changes() = 0;
};

} // namespace glidemap
