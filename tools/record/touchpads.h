// The recorder's access to the touchpads: their number, their names, and their raw reports and
// button events.
//
// Thread:  the main thread; the recorder is called on the driver's thread.
// Owner:   main; one at a time, because the driver's callbacks have no context argument.
// Errors:  a driver that lacks the required functions has no touchpads.
#pragma once

#include "input/multitouch_device_manager.h"
#include "input/touch_driver.h"
#include "recorder.h"

#include <cstdint>
#include <string>
#include <vector>

namespace glidemap::record {

class Touchpads {
public:
    explicit Touchpads(const MultitouchDeviceManager& manager);
    Touchpads(const Touchpads&) = delete;
    Touchpads& operator=(const Touchpads&) = delete;
    ~Touchpads();

    bool exist() const { return !devices.empty(); }

    // Returns whether the manager has started any of these touchpads. Returns false for a driver
    // that creates new devices for every list, like the replay driver, because the manager starts
    // other devices.
    bool areStarted() const;

    // Returns the number of further touchpads that this user cannot open.
    std::int32_t unreadableCount() const;

    // Returns the touchpads' names, for display.
    std::string names() const;

    // Passes all events of the touchpads to the recorder, as soon as the touchpads are started. The
    // recorder must exist until the touchpads are stopped.
    void listen(Recorder& recorder);

private:
    template <typename Function>
    Function function(const char* name) const;

    const MultitouchDeviceManager& manager;
    std::vector<driver::Device> devices;
};

} // namespace glidemap::record
