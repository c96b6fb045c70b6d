// Implements the click tap with the evdev driver's click filter. The driver sits between the
// touchpads and the desktop, and calls back for each click.
//
// While the filter is on, the driver grabs the touchpads and forwards their events through clones.
// So the filter is on only while the tap is enabled and a click could be swallowed.
//
// Thread:  as every click tap; setNeeded() on any thread. The driver's reader thread calls the
//          callback.
// Owner:   the click monitor. The device manager outlives it.
// Errors:  create() returns false if the driver cannot filter clicks or lacks permission.
#pragma once

#include "dispatch/click_tap.h"
#include "drivers/evdev/click_filter.h"
#include "input/multitouch_device_manager.h"

#include <cstdint>
#include <mutex>

namespace glidemap {

class LinuxClickTap : public ClickTap {
public:
    // The manager has loaded its driver in its constructor and keeps it loaded. Whether it
    // currently reads touchpads does not matter here.
    explicit LinuxClickTap(const MultitouchDeviceManager& deviceManager);
    ~LinuxClickTap() override;

    bool create(Callback newCallback) override;
    void setEnabled(bool enabled) override;
    void remove() override;

    // The default is true: until the first call a click may be needed.
    void setNeeded(bool needed) override;

private:
    static bool filter(void* tap, driver::Device device, std::int32_t event, std::int32_t button);

    void useSwitch(driver::SwitchClickFilter turn);

    // Sets a requested state of the filter. The last change always reaches the driver last.
    void want(bool& wish, bool value);

    const MultitouchDeviceManager& manager;
    driver::SetClickFilter setFilter = nullptr; // null while the tap does not exist
    Callback callback;

    // Not held during calls to the driver: the driver may wait for its reader thread, whose
    // callback may need this lock.
    std::mutex lock;
    driver::SwitchClickFilter switchFilter = nullptr; // null while the tap does not exist
    bool isEnabled = false;
    bool isNeeded = true;
    bool isNotifying = false; // a thread is calling the driver
    bool mustNotify = false;  // another call must follow
};

} // namespace glidemap
