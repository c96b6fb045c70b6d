// Port: whether the user is at the session that the program belongs to.
//
// Thread:  the queries on any, without waiting; changes() on the main thread.
// Owner:   the program makes one.
// Errors:  none; a session of which nothing is known is active and not locked.
#pragma once

#include "core/observable.h"

namespace glidemap {

class UserSession {
public:
    UserSession() = default;
    UserSession(const UserSession&) = delete;
    UserSession& operator=(const UserSession&) = delete;
    virtual ~UserSession() = default;

    // False while another user's session, or another one of the same user, is in front.
    virtual bool isActive() const = 0;

    virtual bool isLocked() const = 0;

    // Of either.
    Observable& changes() { return observers; }

private:
    Observable observers;
};

} // namespace glidemap
