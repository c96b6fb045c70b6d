// Follows the state of the user's session: whether it is in the foreground, whether it is locked,
// and whether the machine is asleep.
//
//   logind, system bus        Active ───────────▶ in front or not
//                             PrepareForSleep ──▶ asleep or not
//                             LockedHint ─┐
//   screen savers, session bus  active ───┴▶ locked if any of them reports it
//
// Without these services, for example on a console, the session is active and unlocked. The
// connections are opened in the background and stay open. The program wakes up only for their
// signals.
//
// Thread:  see UserSession; the desktop thread calls the buses.
// Owner:   the program; it must outlive all its users. The destructor stops the updates.
// Errors:  none. If logind stops responding or disappears, the last known state remains, except
//          that the machine counts as awake when logind has exited. If a screen saver disappears,
//          its lock no longer counts.
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

    // Tasks in the main queue hold weak references.
    std::shared_ptr<LinuxUserSession*> life = std::make_shared<LinuxUserSession*>(this);
    std::shared_ptr<Known> known;
    BusRequests requests; // destroyed first, which stops the updates
};

} // namespace glidemap
