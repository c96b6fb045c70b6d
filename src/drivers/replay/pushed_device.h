// A device without a recording: the caller pushes its reports and keeps the time.
//
// Thread:  delivers reports on the caller's thread.
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
