// Implements the click tap with the click filter of the evdev driver. The driver is placed between
// the touchpads and the desktop, and calls the filter for each click.
//
// While the filter is on, the driver grabs the touchpads and forwards their events through clones.
// Therefore the filter is on only while the tap is enabled and clicks may have to be swallowed.
//
// Thread:  see ClickTap; setNeeded() on any thread. The driver's reader thread calls the callback.
// Owner:   the click monitor. The device manager must outlive the tap.
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
    // The manager loads its driver on construction and keeps it loaded. The tap works whether or
    // not the manager currently reads touchpads.
    explicit LinuxClickTap(const MultitouchDeviceManager& deviceManager);
    ~LinuxClickTap() override;

    bool create(Callback newCallback) override;
    void setEnabled(bool enabled) override;
    void remove() override;

    // Sets whether clicks may have to be swallowed. True until the first call.
    void setNeeded(bool needed) override;

private:
    static bool filter(void* tap, driver::Device device, std::int32_t event, std::int32_t button);

    void useSwitch(driver::SwitchClickFilter turn);

    // Sets isEnabled or isNeeded, and notifies the driver. If several threads call this
    // concurrently, the last call to the driver passes the final state.
    void want(bool& wish, bool value);

    const MultitouchDeviceManager& manager;
    driver::SetClickFilter setFilter = nullptr; // null while the tap does not exist
    Callback callback;

    // Must not be held during calls to the driver: the driver may wait for its reader thread, and
    // the filter's callback on that thread may need this lock.
    std::mutex lock;
    driver::SwitchClickFilter switchFilter = nullptr; // null while the tap does not exist
    bool isEnabled = false;
    bool isNeeded = true;
    bool isNotifying = false; // a thread is calling the driver
    bool mustNotify = false;  // the driver must be called again
};

} // namespace glidemap
