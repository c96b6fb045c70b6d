// A session whose active and locked states the test sets.
//
// Thread:  the setters on the test's main thread; the rest on any.
#pragma once

#include "dispatch/user_session.h"

#include <atomic>

namespace glidemap::kit {

class ScriptedUserSession : public UserSession {
public:
    bool isActive() const override { return active; }
    bool isLocked() const override { return locked; }

    void setActive(bool isActive) {
        active = isActive;
        changes().announceDidChange();
    }
    void setLocked(bool isLocked) {
        locked = isLocked;
        changes().announceDidChange();
    }

private:
    std::atomic<bool> active = true;
    std::atomic<bool> locked = false;
};

} // namespace glidemap::kit
