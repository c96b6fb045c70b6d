// The user's session as logind (or elogind) and the desktop's screen saver report it.
//
//   logind, system bus        Active ──────▶ in front or not
//                             LockedHint ─┐
//   screen savers, session bus  active ───┴▶ locked: if any of them says so
//
// A console without either service is active and not locked. Both buses are opened in the background
// and stay open; in between nothing wakes up.
//
// Thread:  as every user session; the buses are spoken to on the desktop thread.
// Owner:   the program, before and for longer than whatever asks it. Destroying it ends its watch.
// Errors:  none. A service that falls silent or goes away for a moment leaves the last known state;
//          a screen saver that goes away locks no longer.
#pragma once

#include "core/main_queue.h"
#include "dispatch/user_session.h"
#include "platform/linux/session/bus_errand.h"
#include "platform/linux/windows/desktop_thread.h"

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

    // What the main queue's tasks hold weakly.
    std::shared_ptr<LinuxUserSession*> life = std::make_shared<LinuxUserSession*>(this);
    std::shared_ptr<Known> known;
    BusErrands errands; // end first
};

} // namespace glidemap
