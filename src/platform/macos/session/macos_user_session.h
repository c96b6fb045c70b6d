// Follows the state of the user's session: whether it is in the foreground, whether its screen is
// locked, and whether the machine sleeps.
//
//   workspace            session becomes active or inactive ──────▶ active
//                        machine sleeps; machine or screens wake ─▶ asleep
//   other processes      screen is locked or unlocked ────────────▶ locked
//   window server, once  the initial values of active and locked
//
// The names of the notifications about the lock are not documented. If the system does not send
// them, isLocked() keeps its initial value.
//
// Thread:  see UserSession. The system notifies on the main thread.
// Owner:   the program; it must outlive all its users. The destructor ends the system's
//          notifications.
// Errors:  none. Without a window server, the session counts as active and unlocked.
#pragma once

#include "dispatch/user_session.h"

#include <atomic>
#include <memory>

namespace glidemap {

class MacosUserSession : public UserSession {
public:
    MacosUserSession();
    ~MacosUserSession() override;

    bool isActive() const override { return active; }
    bool isLocked() const override { return locked; }
    bool isAsleep() const override { return asleep; }

private:
    struct Following;

    void set(std::atomic<bool>& value, bool now);

    std::atomic<bool> active = true;
    std::atomic<bool> locked = false;
    std::atomic<bool> asleep = false;
    std::unique_ptr<Following> following; // destroyed first
};

} // namespace glidemap
