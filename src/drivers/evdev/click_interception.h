// What all touchpads' forwarding has in common: the filter that is asked about clicks, whether it
// is on, and the watchdog.
//
// Thread:  under the driver's lock; drops() and noticeStall() on the reader's thread.
// Owner:   TouchpadDriver.
// Errors:  none.
#pragma once

#include "drivers/evdev/click_filter.h"
#include "drivers/evdev/forwarding_watchdog.h"
#include "input/touch_driver.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace glidemap {

class ClickInterception {
public:
    // `wakeReader` is called on any thread.
    ClickInterception(WatchdogTime& time, std::function<void()> wakeReader);

    void setFilter(driver::FilterClick newFilter, void* newContext);
    void switchOn(bool on);

    // Whether touchpads are to be forwarded.
    bool isWanted() const { return isOn && filter != nullptr; }
    // Counts the times that it was switched on. What has failed is tried again with the next.
    unsigned attempt() const { return attempts; }

    // Whether any of this was changed since this was last asked.
    bool takeChange() { return std::exchange(hasChanged, false); }

    // Asks the filter about a button change of a touchpad that is forwarded. While it is off every
    // click passes.
    bool drops(driver::Device device, std::int32_t button, bool down);

    // After a stall the filter is off and hears of it; it may switch itself on again at once. False
    // if there was none that has not been noticed.
    bool noticeStall();

    ForwardingWatchdog& watchdog() { return dog; }

private:
    const std::function<void()> wakeReader;
    driver::FilterClick filter = nullptr;
    void* context = nullptr;
    bool isOn = false;
    bool hasChanged = false;
    unsigned attempts = 0;
    ForwardingWatchdog dog;
};

} // namespace glidemap
