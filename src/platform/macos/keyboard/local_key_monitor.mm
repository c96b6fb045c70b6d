#include "platform/macos/keyboard/local_key_monitor.h"

#import <AppKit/AppKit.h>

#include <utility>

namespace glidemap {

class LocalKeyMonitor::Monitor : public std::enable_shared_from_this<Monitor> {
public:
    void start(std::function<void(const Press&)> handler);
    void stop();
    void remove();

private:
    void install();

    // Returns the event to pass it on, or nil to swallow it.
    NSEvent* passedOn(NSEvent* event);
    NSEvent* repeated(NSEvent* event) const;
    void take(NSEvent* event);

    std::function<void(const Press&)> notify; // empty while stopped
    std::optional<std::uint16_t> taken;       // the key whose repeats are swallowed
    id installed = nil;                       // owned by the system until it is removed
};

LocalKeyMonitor::LocalKeyMonitor() : monitor(std::make_shared<Monitor>()) {}

LocalKeyMonitor::~LocalKeyMonitor() {
    monitor->remove();
}

void LocalKeyMonitor::start(std::function<void(const Press&)> handler) {
    monitor->start(std::move(handler));
}

void LocalKeyMonitor::stop() {
    monitor->stop();
}

void LocalKeyMonitor::abandon() {
    monitor->remove();
}

void LocalKeyMonitor::Monitor::start(std::function<void(const Press&)> handler) {
    notify = std::move(handler);
    if (installed == nil) {
        install();
    }
}

void LocalKeyMonitor::Monitor::stop() {
    notify = nullptr;
    if (!taken) {
        remove();
    }
}

// Clears the pointer, because removing a monitor twice would release it twice.
void LocalKeyMonitor::Monitor::remove() {
    notify = nullptr;
    taken.reset();
    if (installed != nil) {
        [NSEvent removeMonitor:std::exchange(installed, nil)];
    }
}

void LocalKeyMonitor::Monitor::install() {
    const std::weak_ptr<Monitor> weakly = weak_from_this();
    // Removing a monitor releases its block, possibly while the block runs. Therefore, the block
    // must not use its captures after it has called passedOn().
    installed = [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                                      handler:^NSEvent*(NSEvent* event) {
                                                        const auto held = weakly.lock();
                                                        return held ? held->passedOn(event) : event;
                                                      }];
}

NSEvent* LocalKeyMonitor::Monitor::passedOn(NSEvent* event) {
    if ([event isARepeat]) {
        return repeated(event);
    }
    if (!notify) {
        remove();
        return event;
    }
    take(event);
    return nil;
}

// While recording, swallows all auto-repeats, because the user may still hold the key that started
// the recording.
NSEvent* LocalKeyMonitor::Monitor::repeated(NSEvent* event) const {
    return notify || taken == [event keyCode] ? nil : event;
}

void LocalKeyMonitor::Monitor::take(NSEvent* event) {
    taken = [event keyCode];
    const auto reported = notify; // the callback may stop this monitor
    reported({taken, [event modifierFlags] & NSEventModifierFlagDeviceIndependentFlagsMask});
}

} // namespace glidemap
