// Locks the screen through the first service that confirms it.
//
// First logind is asked to lock the session. That it agrees says little: it only passes the wish on,
// and a desktop without a screen locker, or with one that does not listen, does nothing. So the
// screen counts as locked once the session says that it is (its LockedHint), or a locker's program
// runs, or one that is known to listen to logind. Else a screen saver service is asked: one that is
// running, else one that can be started. Its agreement counts. Then come the session's own lockers.
// With none of them `otherwise` is called, unless one may still come up: a service that was asked
// and is late, or a program that has not ended.
//
// Thread:  the main thread; the desktop thread calls the buses.
// Owner:   the program. The destructor cancels pending calls; `otherwise` is not called then.
// Errors:  none; a service that does not reply within its limit counts as missing.
#pragma once

#include "core/main_queue.h"
#include "dispatch/screen_lock.h"
#include "platform/linux/session/bus_errand.h"

#include <chrono>
#include <functional>

namespace glidemap {

class LinuxScreenLock : public ScreenLock {
public:
    struct Patience {
        // A running service replies within milliseconds, even while the machine is busy locking.
        std::chrono::milliseconds answer{1000};
        // From logind's reply to LockedHint: the locker starts in this time.
        std::chrono::milliseconds locked{1000};
        // A service that is started for it, or a program.
        std::chrono::milliseconds start{5000};
    };

    LinuxScreenLock(DesktopThread& desktop, MainQueue& queue);
    LinuxScreenLock(DesktopThread& desktop, MainQueue& queue, Patience limits);

    // True: what can lock may come and go while the program runs, and needs no bus.
    bool find() override;
    void lock(std::function<void()> otherwise) override;

private:
    MainQueue& mainQueue;
    const Patience patience;
    BusErrands errands;
};

} // namespace glidemap
