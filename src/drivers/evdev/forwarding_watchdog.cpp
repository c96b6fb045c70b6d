#include "drivers/evdev/forwarding_watchdog.h"

#include "core/log.h"
#include "drivers/evdev/thread_without_signals.h"

#include <pthread.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace glidemap {

ForwardingWatchdog::ForwardingWatchdog(WatchdogTime& time, std::function<void()> callback)
    : time(time), onStall(std::move(callback)) {}

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

bool ForwardingWatchdog::hold(const Held& newlyHeld, const std::function<bool()>& grab) {
    const std::lock_guard lock(mutex);
    if (paused) {
        return false;
    }
    try {
        held.reserve(held.size() + 1);
        if (!thread.joinable()) {
            thread = threadWithoutSignals([this] { run(); });
        }
    } catch (const std::exception&) {
        return false;
    }
    if (!grab()) {
        return false;
    }
    held.push_back(newlyHeld);
    lastProgress = time.now(); // restarts the time-out
    changed.notify_all();
    return true;
}

void ForwardingWatchdog::release(const OpenPad& pad, const std::function<bool()>& ungrab) {
    const std::lock_guard lock(mutex);
    const auto found = std::ranges::find(held, &pad, &Held::pad);
    if (found != held.end() && ungrab()) {
        held.erase(found);
        changed.notify_all();
    }
}

bool ForwardingWatchdog::holds(const OpenPad& pad) const {
    const std::lock_guard lock(mutex);
    return std::ranges::find(held, &pad, &Held::pad) != held.end();
}

void ForwardingWatchdog::work() {
    const std::lock_guard lock(mutex);
    working = true;
    lastProgress = time.now();
    setWatching(true);
}

void ForwardingWatchdog::progress() {
    const std::lock_guard lock(mutex);
    lastProgress = time.now();
}

void ForwardingWatchdog::rest(bool touched) {
    const std::lock_guard lock(mutex);
    working = false;
    setWatching(watching && touched);
}

void ForwardingWatchdog::setWatching(bool now) {
    if (std::exchange(watching, now) != now && !held.empty()) {
        changed.notify_all();
    }
}

void ForwardingWatchdog::pause() {
    const std::lock_guard lock(mutex);
    paused = true;
    if (!held.empty()) {
        giveBack();
    }
}

void ForwardingWatchdog::resume() {
    {
        const std::lock_guard lock(mutex);
        paused = false;
    }
    onStall();
}

bool ForwardingWatchdog::isPaused() const {
    const std::lock_guard lock(mutex);
    return paused;
}

std::optional<driver::Device> ForwardingWatchdog::takeStall() {
    const std::lock_guard lock(mutex);
    return paused ? std::nullopt : std::exchange(stalled, std::nullopt);
}

void ForwardingWatchdog::run() {
    pthread_setname_np(pthread_self(), "glidemap-watch");
    std::unique_lock lock(mutex);
    while (!stopping) {
        const auto due = deadline();
        if (!due.has_value() || time.now() < *due) {
            time.wait(changed, lock, due);
        } else if (!working) {
            watching = false; // the reader is idle: no event has arrived for a second
        } else {
            giveBack();
            lock.unlock();
            onStall();
            lock.lock();
        }
    }
}

std::optional<WatchdogTime::Moment> ForwardingWatchdog::deadline() const {
    return watching && !held.empty() ? std::optional(lastProgress + patience) : std::nullopt;
}

// Releases the touchpads first, so that the user can use them immediately. Then destroys the
// clones, which makes the kernel release their contacts and keys.
void ForwardingWatchdog::giveBack() {
    stalled = held.front().device;
    for (const Held& each : held) {
        each.pad->ungrab();
    }
    for (const Held& each : held) {
        each.clone->destroy();
    }
    logLine("touchpads", "given back ", held.size(),
            paused ? ": the program is being stopped"
                   : ": the program made no progress for a second");
    held.clear();
}

} // namespace glidemap
