// Port: whether the program's session is active and unlocked.
//
// Thread:  the queries on any, without waiting; changes() on the main thread.
// Owner:   the program creates one.
// Errors:  none; a session of unknown state counts as active and unlocked.
#pragma once

#include "core/observable.h"

namespace glidemap {

class UserSession {
public:
    UserSession() = default;
    UserSession(const UserSession&) = delete;
    UserSession& operator=(const UserSession&) = delete;
    virtual ~UserSession() = default;

    // False while another session is active, of another user or of the same user.
    virtual bool isActive() const = 0;

    virtual bool isLocked() const = 0;

    // Notifies when either value changes.
    Observable& changes() { return observers; }

private:
    Observable observers;
};

} // namespace glidemap
