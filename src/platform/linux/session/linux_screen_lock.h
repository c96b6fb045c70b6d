// Locks the screen with the first service that confirms the lock.
//
// The services are tried in this order:
//
//  1. logind. A successful call is not sufficient, because logind only forwards the request, and a
//     desktop without a screen locker ignores it. The screen counts as locked once the session's
//     LockedHint is true, a locker program is running, or a program is running that is known to
//     lock the screen when logind requests it.
//  2. Screen saver services: running ones, then those that D-Bus can start. A successful reply
//     counts as a lock.
//  3. The screen lockers of the session itself.
//
// If all fail, `otherwise` is called. It is not called if a service that timed out or a program
// that has not exited may still lock the screen.
//
// Thread:  the main thread; the desktop thread calls the buses.
// Owner:   the program. The destructor cancels pending calls; `otherwise` is then not called.
// Errors:  none; a service that does not reply within its time limit is skipped.
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
        // The time limit for the reply from a running service. A working service replies within
        // milliseconds, even while the machine is busy locking the screen.
        std::chrono::milliseconds answer{1000};
        // The time limit from logind's reply until LockedHint is true, while the locker starts.
        std::chrono::milliseconds locked{1000};
        // The time limit for a service that D-Bus must start first, and for a locker program.
        std::chrono::milliseconds start{5000};
    };

    LinuxScreenLock(DesktopThread& desktop, MainQueue& queue);
    LinuxScreenLock(DesktopThread& desktop, MainQueue& queue, Patience limits);

    // Always returns true, because lockers may appear and disappear while the program runs, and
    // some need no bus.
    bool find() override;
    void lock(std::function<void()> otherwise) override;

private:
    MainQueue& mainQueue;
    const Patience patience;
    BusRequests requests;
};

} // namespace glidemap
