// A fake session whose active, locked and sleeping states the test sets.
//
// Thread:  the setters on the test's main thread; the other functions on any thread.
#pragma once

#include "dispatch/user_session.h"

#include <atomic>

namespace glidemap::test {

class FakeUserSession : public UserSession {
public:
    bool isActive() const override { return active; }
    bool isLocked() const override { return locked; }
    bool isAsleep() const override { return asleep; }

    void setActive(bool isActive) {
        active = isActive;
        changes().announceDidChange();
    }
    void setLocked(bool isLocked) {
        locked = isLocked;
        changes().announceDidChange();
    }

    void setAsleep(bool isAsleep) {
        asleep = isAsleep;
        changes().announceDidChange();
    }

private:
    std::atomic<bool> active = true;
    std::atomic<bool> locked = false;
    std::atomic<bool> asleep = false;
};

} // namespace glidemap::test
