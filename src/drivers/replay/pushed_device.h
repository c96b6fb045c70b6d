// A device without a recording: whoever keeps the time pushes its reports.
//
// Thread:  reports are delivered on the caller's own.
#pragma once

#include "drivers/replay/replay_device.h"

#include <cstdint>

namespace glidemap::replay {

class PushedDevice : public ReplayDevice {
public:
    void start() override;
    void stop() override;

    // Does nothing while the device is stopped.
    void push(const MTTouch* records, std::int32_t count, double timestamp);

private:
    bool started = false;
};

} // namespace glidemap::replay
