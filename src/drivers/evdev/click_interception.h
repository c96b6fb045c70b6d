// The state that all forwarded touchpads share: the click filter and its switch, the watchdog, and
// the watch for new clones.
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

    // The maximum number of clones that are introduced at the same time. udev initialises devices
    // one by one, and each clone must be ready within two seconds.
    static constexpr int maxIntroductions = 2;

    // `wakeReader` is called on any thread, `makeCloneWatch` on the reader's thread.
    ClickInterception(WatchdogTime& time, std::function<void()> wakeReader,
                      MakeCloneWatch makeCloneWatch);

    void setFilter(driver::FilterClick newFilter, void* newContext);
    void switchOn(bool on);

    // Returns whether touchpads must be forwarded.
    bool isWanted() const { return isOn && filter != nullptr; }
    // Returns how many times the filter was switched on. Each time, the driver retries to clone the
    // touchpads that could not be cloned before.
    unsigned attempt() const { return attempts; }

    // Returns whether the driver must check its touchpads again: since the last call, the filter
    // was set or switched, or a touchpad that had to wait may introduce its clone now.
    bool takeChange() { return std::exchange(hasChanged, false); }

    // Returns whether the filter drops a button change of a forwarded touchpad. Returns false while
    // the filter is off.
    bool drops(driver::Device device, std::int32_t button, bool down);

    // After a stall, switches the filter off and calls it to report this. The filter may switch
    // itself on again during the call. Returns false if no stall has happened since the last call.
    bool noticeStall();

    // Call this before creating a clone. Returns false if too many clones are new. The touchpad
    // then retries when the introduction of another clone ends.
    bool beginIntroduction();
    void endIntroduction();

    // Returns null while no clone is new.
    CloneWatch* cloneWatch() const { return watch.get(); }

    Moment now() const { return time.now(); }
    ForwardingWatchdog& watchdog() { return dog; }

private:
    WatchdogTime& time;
    const std::function<void()> wakeReader;
    const MakeCloneWatch makeWatch;
    int introductions = 0;
    bool isAwaited = false; // a touchpad waits for the end of an introduction
    std::unique_ptr<CloneWatch> watch;
    driver::FilterClick filter = nullptr;
    void* context = nullptr;
    bool isOn = false;
    bool hasChanged = false;
    unsigned attempts = 0;
    ForwardingWatchdog dog;
};

} // namespace glidemap
