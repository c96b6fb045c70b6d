#include "drivers/evdev/forwarding_watchdog.h"

#include "drivers/evdev/thread_without_signals.h"

#include <pthread.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace glidemap {

ForwardingWatchdog::ForwardingWatchdog(Clock::duration itsPatience, std::function<void()> callback)
    : patience(itsPatience), onStall(std::move(callback)) {}

ForwardingWatchdog::~ForwardingWatchdog() {
    {
        const std::lock_guard lock(mutex);
        stopping = true;
    }
    changed.notify_all();
    if (thread.joinable()) {
        thread.join();
    }
}

bool ForwardingWatchdog::hold(const Held& newlyHeld) {
    const std::lock_guard lock(mutex);
    try {
        held.push_back(newlyHeld);
        if (!thread.joinable()) {
            thread = threadWithoutSignals([this] { run(); });
        }
    } catch (const std::exception&) {
        std::erase_if(held, [&](const Held& each) { return each.pad == newlyHeld.pad; });
        return false;
    }
    changed.notify_all();
    return true;
}

void ForwardingWatchdog::release(const OpenPad& pad) {
    const std::lock_guard lock(mutex);
    std::erase_if(held, [&pad](const Held& each) { return each.pad == &pad; });
    changed.notify_all();
}

bool ForwardingWatchdog::holds(const OpenPad& pad) const {
    const std::lock_guard lock(mutex);
    return std::ranges::find(held, &pad, &Held::pad) != held.end();
}

void ForwardingWatchdog::work() {
    const std::lock_guard lock(mutex);
    working = true;
    lastProgress = Clock::now();
    if (dormant && !held.empty()) {
        changed.notify_all();
    }
}

void ForwardingWatchdog::progress() {
    const std::lock_guard lock(mutex);
    lastProgress = Clock::now();
}

// While a finger is down the thread is let be: its time-out comes once a second, its waking would
// come with every report.
void ForwardingWatchdog::rest(bool touched) {
    const std::lock_guard lock(mutex);
    working = false;
    touchedAtRest = touched;
    if (!dormant && !isNeeded()) {
        changed.notify_all();
    }
}

std::optional<driver::Device> ForwardingWatchdog::takeStall() {
    const std::lock_guard lock(mutex);
    return std::exchange(stalled, std::nullopt);
}

void ForwardingWatchdog::run() {
    pthread_setname_np(pthread_self(), "glidemap-watch");
    std::unique_lock lock(mutex);
    while (!stopping) {
        dormant = true;
        changed.wait(lock, [this] { return stopping || (working && !held.empty()); });
        dormant = false;
        while (!stopping && isNeeded()) {
            const bool idle = changed.wait_until(lock, lastProgress + patience,
                                                 [this] { return stopping || !isNeeded(); });
            if (idle || !working) {
                break; // a finger that only rests needs no watching
            }
            if (Clock::now() >= lastProgress + patience) {
                giveBack();
                lock.unlock();
                onStall();
                lock.lock();
            }
        }
    }
}

// The touchpads first: they are what the user misses. The system lifts what their clones hold.
void ForwardingWatchdog::giveBack() {
    stalled = held.front().device;
    for (const Held& each : held) {
        each.pad->ungrab();
        each.clone->destroy();
    }
    held.clear();
}

} // namespace glidemap
