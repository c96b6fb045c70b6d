// The click tap over the evdev driver's click filter: the driver stands between the touchpads and
// the desktop, and asks about each click.
//
// While the filter is on the touchpads are taken from the desktop and played to it again, so it is
// on only while the tap is enabled and a click could be taken out.
//
// Thread:  as every click tap; setNeeded() on any thread. The callback is called on the driver's
//          reader.
// Owner:   the click monitor. The device manager outlives it.
// Errors:  create() answers false without a driver that can filter clicks, or where it may not.
#pragma once

#include "dispatch/click_tap.h"
#include "drivers/evdev/click_filter.h"
#include "input/multitouch_device_manager.h"

#include <cstdint>
#include <mutex>

namespace glidemap {

class LinuxClickTap : public ClickTap {
public:
    // The manager has loaded its driver when it is there, and keeps it for good; whether it reads
    // touchpads at the moment does not matter here.
    explicit LinuxClickTap(const MultitouchDeviceManager& deviceManager);
    ~LinuxClickTap() override;

    bool create(Callback newCallback) override;
    void setEnabled(bool enabled) override;
    void remove() override;

    // Until it is told, the tap takes it that a click could be.
    void setNeeded(bool needed) override;

private:
    static bool filter(void* tap, driver::Device device, std::int32_t event, std::int32_t button);

    void useSwitch(driver::SwitchClickFilter turn);

    // Changes what is wanted of the filter, and sees to it that the driver hears of the last change
    // last.
    void want(bool& wish, bool value);

    const MultitouchDeviceManager& manager;
    driver::SetClickFilter setFilter = nullptr; // null while there is no tap
    Callback callback;

    // Never held while the driver is called: it may wait for its reader, which may be in our
    // callback and want this lock.
    std::mutex lock;
    driver::SwitchClickFilter switchFilter = nullptr; // null while there is no tap
    bool isEnabled = false;
    bool isNeeded = true;
    bool isTelling = false; // a thread is telling the driver
    bool mustTell = false;  // and there is more to tell
};

} // namespace glidemap
