// Loads the replay driver by path, like any touch driver, and pushes reports into it.
//
// Thread:  one. A pushed report reaches the contact callback on the same thread, before push()
//          returns.
// Owner:   main(); outlives every run.
// Errors:  stored in error(); a driver with an error must not be used.
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
