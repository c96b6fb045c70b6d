#include "drivers/replay/pushed_device.h"

namespace glidemap::replay {

void PushedDevice::start() {
    const Gate gate = closeGate();
    started = true;
}

void PushedDevice::stop() {
    const Gate gate = closeGate();
    started = false;
}

void PushedDevice::push(const MTTouch* records, std::int32_t count, double timestamp) {
    const Gate gate = closeGate();
    if (started) {
        report(records, count, timestamp);
    }
}

} // namespace glidemap::replay
