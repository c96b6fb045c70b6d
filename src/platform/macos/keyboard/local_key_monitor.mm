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

    // The event, for whoever comes next, or nil.
    NSEvent* passedOn(NSEvent* event);
    NSEvent* repeated(NSEvent* event) const;
    void take(NSEvent* event);

    std::function<void(const Press&)> tell; // none while stopped
    std::optional<std::uint16_t> taken;     // the key that may repeat still
    id installed = nil;                     // the system's own, until it is removed
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
    tell = std::move(handler);
    if (installed == nil) {
        install();
    }
}

void LocalKeyMonitor::Monitor::stop() {
    tell = nullptr;
    if (!taken) {
        remove();
    }
}

// Removing one twice would release it twice.
void LocalKeyMonitor::Monitor::remove() {
    tell = nullptr;
    taken.reset();
    if (installed != nil) {
        [NSEvent removeMonitor:std::exchange(installed, nil)];
    }
}

void LocalKeyMonitor::Monitor::install() {
    const std::weak_ptr<Monitor> weakly = weak_from_this();
    // A removed monitor's block is released, maybe while it runs: after the call it touches nothing
    // of its own.
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
    if (!tell) {
        remove();
        return event;
    }
    take(event);
    return nil;
}

// While it records, also of a key that was held before: whoever started it with that key has not let
// go yet.
NSEvent* LocalKeyMonitor::Monitor::repeated(NSEvent* event) const {
    return tell || taken == [event keyCode] ? nil : event;
}

void LocalKeyMonitor::Monitor::take(NSEvent* event) {
    taken = [event keyCode];
    const auto told = tell; // which may stop this
    told({taken, [event modifierFlags] & NSEventModifierFlagDeviceIndependentFlagsMask});
}

} // namespace glidemap
