#include "drivers/replay/replay_device.h"

#include <atomic>

namespace glidemap::replay {

namespace {

std::atomic<driver::ButtonCallback> buttonCallback = nullptr;

} // namespace

void ReplayDevice::registerCallback(driver::ContactCallback function) {
    const Gate gate = closeGate();
    callback = function;
}

void ReplayDevice::unregisterCallback(driver::ContactCallback function) {
    const Gate gate = closeGate();
    if (callback == function) {
        callback = nullptr;
    }
}

bool ReplayDevice::isRegistered() {
    const Gate gate = closeGate();
    return callback != nullptr;
}

void ReplayDevice::setButtonCallback(driver::ButtonCallback function) {
    buttonCallback = function;
}

void ReplayDevice::report(const MTTouch* records, std::int32_t count, double timestamp) {
    // Wraps after the largest number, as the frame numbers of a pad do.
    frame = static_cast<std::int32_t>(static_cast<std::uint32_t>(frame) + 1);
    if (callback != nullptr) {
        callback(this, records, count, timestamp, frame);
    }
}

void ReplayDevice::reportButton(std::int32_t button, bool down, double timestamp) {
    if (const auto function = buttonCallback.load()) {
        function(this, button, down, timestamp);
    }
}

} // namespace glidemap::replay
