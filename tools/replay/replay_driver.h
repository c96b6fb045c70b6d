// The replay driver, loaded by path as any touch driver is, and the door through which reports are
// pushed into it.
//
// Thread:  one. What is pushed comes out of the contact callback on the same thread, before push()
//          returns.
// Owner:   main(); outlives every run.
// Errors:  a value in error(); a driver with an error must not be used.
#pragma once

#include "input/multitouch_device_manager.h"
#include "input/touch_driver.h"

#include <optional>
#include <string>
#include <vector>

namespace glidemap::replay {

class ReplayDriver {
public:
    ReplayDriver();

    MultitouchDeviceManager& deviceManager() { return manager; }

    void push(const std::vector<MTTouch>& touches, double time) {
        pushReport(touches.data(), static_cast<std::int32_t>(touches.size()), time);
    }

    std::optional<std::string> error() const;

private:
    MultitouchDeviceManager manager;
    driver::Push pushReport = nullptr;
};

} // namespace glidemap::replay
