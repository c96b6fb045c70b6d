// Port: whether the program's session is active and unlocked, and its machine awake.
//
// Thread:  the queries on any, without waiting; changes() on the main thread.
// Owner:   the program creates one.
// Errors:  none; a session of unknown state counts as active, unlocked and awake.
#pragma once

#include "core/observable.h"

namespace glidemap {

class UserSession {
public:
    UserSession() = default;
    UserSession(const UserSession&) = delete;
    UserSession& operator=(const UserSession&) = delete;
    virtual ~UserSession() = default;

    // Returns false while another session is active, of another user or of the same user.
    virtual bool isActive() const = 0;

    virtual bool isLocked() const = 0;

    // From shortly before the machine sleeps until it is awake again. Always false if the platform
    // does not announce sleep.
    virtual bool isAsleep() const { return false; }

    // Notifies when any of these values changes.
    Observable& changes() { return observers; }

private:
    Observable observers;
};

} // namespace glidemap
