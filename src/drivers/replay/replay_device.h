// A device of the replay driver. Delivers reports and button changes one at a time, while it holds
// a lock, the gate.
//
// Thread:  start() and stop() on any thread, also from within a callback; reports arrive on one
//          thread at a time. The gate's lock is held during a callback, so stop() waits for a
//          running callback.
// Owner:   the driver, for as long as the process lives.
// Errors:  none.
#pragma once

#include "input/touch_driver.h"

#include <cstdint>
#include <mutex>

namespace glidemap::replay {

class ReplayDevice {
public:
    ReplayDevice() = default;
    ReplayDevice(const ReplayDevice&) = delete;
    ReplayDevice& operator=(const ReplayDevice&) = delete;
    virtual ~ReplayDevice() = default;

    void registerCallback(driver::ContactCallback function);
    void unregisterCallback(driver::ContactCallback function);
    bool isRegistered();

    // Applies to every device.
    static void setButtonCallback(driver::ButtonCallback function);

    virtual void start() = 0;

    // After this has returned, no callback is running, except one that called this function itself.
    virtual void stop() = 0;

protected:
    // Recursive, so that a callback may stop its own device.
    using Gate = std::unique_lock<std::recursive_mutex>;

    Gate closeGate() { return Gate(mutex); }

    // The caller of these functions must hold the gate.
    void report(const MTTouch* records, std::int32_t count, double timestamp);
    void reportButton(std::int32_t button, bool down, double timestamp);

private:
    std::recursive_mutex mutex;
    driver::ContactCallback callback = nullptr;
    std::int32_t frame = 0;
};

} // namespace glidemap::replay
