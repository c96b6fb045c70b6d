// Port: whether the program's session is active and unlocked, and whether the machine is awake.
//
// Thread:  queries on any thread, without waiting; changes() on the main thread.
// Owner:   the program creates one.
// Errors:  none; if the state is unknown, the session counts as active, unlocked and awake.
#pragma once

#include "core/observable.h"

namespace glidemap {

class UserSession {
public:
    UserSession() = default;
    UserSession(const UserSession&) = delete;
    UserSession& operator=(const UserSession&) = delete;
    virtual ~UserSession() = default;

    // Returns false while another session is active, whether it belongs to this user or another.
    virtual bool isActive() const = 0;

    virtual bool isLocked() const = 0;

    // Returns true from shortly before the machine sleeps until it is awake again. Always false if
    // the platform does not announce sleep.
    virtual bool isAsleep() const { return false; }

    // Notifies when any of these values changes.
    Observable& changes() { return observers; }

private:
    Observable observers;
};

} // namespace glidemap
