// Follows the state of the user's session: whether it is in front and whether it is locked.
//
//   logind, system bus        Active ──────▶ in front or not
//                             LockedHint ─┐
//   screen savers, session bus  active ───┴▶ locked if any of them reports it
//
// Without these services, as on a console, the session is active and not locked. Both connections
// are opened in the background and stay open; the program wakes up only for their signals.
//
// Thread:  as every user session; the desktop thread calls the buses.
// Owner:   the program, before and longer than all its users. The destructor stops the updates.
// Errors:  none. If logind stops responding or disappears, the last known state remains; if a
//          screen saver disappears, its lock ends.
#pragma once

#include "core/main_queue.h"
#include "dispatch/user_session.h"
#include "platform/linux/desktop/bus_request.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <atomic>
#include <memory>

namespace glidemap {

class LinuxUserSession : public UserSession {
public:
    LinuxUserSession(DesktopThread& desktop, std::shared_ptr<MainQueue> mainQueue);

    bool isActive() const override;
    bool isAsleep() const override;
    bool isLocked() const override;

private:
    struct Known;

    // Main queue tasks hold it weakly.
    std::shared_ptr<LinuxUserSession*> life = std::make_shared<LinuxUserSession*>(this);
    std::shared_ptr<Known> known;
    BusRequests requests; // destroyed first
};

} // namespace glidemap
