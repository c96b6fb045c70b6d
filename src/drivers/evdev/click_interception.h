// What all touchpads' forwarding has in common: the filter that is asked about clicks, whether it
// is on, the watchdog, and the view of what the system makes of new clones.
//
// Thread:  under the driver's lock; drops() and noticeStall() on the reader's thread.
// Owner:   TouchpadDriver.
// Errors:  none.
#pragma once

#include "drivers/evdev/click_filter.h"
#include "drivers/evdev/forwarding_watchdog.h"
#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/watchdog_time.h"
#include "input/touch_driver.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace glidemap {

class ClickInterception {
public:
    using MakeCloneWatch = std::function<std::unique_ptr<CloneWatch>()>;
    using Moment = WatchdogTime::Moment;

    // So many clones are new at a time. udev takes them one by one, and each has two seconds.
    static constexpr int maxIntroductions = 2;

    // `wakeReader` is called on any thread, the other on the reader's.
    ClickInterception(WatchdogTime& time, std::function<void()> wakeReader,
                      MakeCloneWatch makeCloneWatch);

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

    // Switches the filter off after a stall and notifies it; it may switch itself on again at once.
    // Returns false if no stall has happened since the last call.
    bool noticeStall();

    // Takes up one of the introductions. False if there is none left: the touchpad is asked again
    // when another one is over. To be called before the clone is made.
    bool beginIntroduction();
    void endIntroduction();

    // Null while no clone is new.
    CloneWatch* cloneWatch() const { return watch.get(); }

    Moment now() const { return time.now(); }
    ForwardingWatchdog& watchdog() { return dog; }

private:
    WatchdogTime& time;
    const std::function<void()> wakeReader;
    const MakeCloneWatch makeWatch;
    int introductions = 0;
    bool isAwaited = false; // the end of an introduction is
    std::unique_ptr<CloneWatch> watch;
    driver::FilterClick filter = nullptr;
    void* context = nullptr;
    bool isOn = false;
    bool hasChanged = false;
    unsigned attempts = 0;
    ForwardingWatchdog dog;
};

} // namespace glidemap
