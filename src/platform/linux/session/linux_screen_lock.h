// Locks the screen through the first service that confirms it.
//
// First it calls logind. A successful call is no proof: logind only forwards the request, and a
// desktop without a screen locker ignores it. So the screen counts as locked once the session's
// LockedHint is true, a locker's program runs, or a program runs that is known to handle logind's
// request. Otherwise a screen saver service is called: a running one, or else one that D-Bus can
// start. Its successful reply counts. The session's own lockers come last. If all fail, `otherwise`
// is called, unless a service that timed out or a program that still runs may yet lock the screen.
//
// Thread:  the main thread; the desktop thread calls the buses.
// Owner:   the program. The destructor cancels pending calls; `otherwise` is not called then.
// Errors:  none; a service that does not reply within its limit counts as missing.
#pragma once

#include "core/main_queue.h"
#include "dispatch/screen_lock.h"
#include "platform/linux/desktop/bus_request.h"

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
        // For a service that D-Bus starts for the call, or for a program.
        std::chrono::milliseconds start{5000};
    };

    LinuxScreenLock(DesktopThread& desktop, MainQueue& queue);
    LinuxScreenLock(DesktopThread& desktop, MainQueue& queue, Patience limits);

    // Always true: lockers may appear and disappear while the program runs, and need no bus.
    bool find() override;
    void lock(std::function<void()> otherwise) override;

private:
    MainQueue& mainQueue;
    const Patience patience;
    BusRequests requests;
};

} // namespace glidemap
