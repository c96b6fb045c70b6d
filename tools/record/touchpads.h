// The touchpads as the recorder needs them: how many there are, what they are called, and their raw
// reports and buttons, which the engine alone would hear of otherwise.
//
// Thread:  the main thread; the recorder is called on the driver's.
// Owner:   main; one at a time, because drivers call back without a context.
// Errors:  a driver without the functions that it needs has no touchpads.
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
    explicit Touchpads(const MultitouchDeviceManager& deviceManager);
    Touchpads(const Touchpads&) = delete;
    Touchpads& operator=(const Touchpads&) = delete;
    ~Touchpads();

    bool exist() const { return !devices.empty(); }

    // Whether these are the touchpads that the manager has started. A driver that makes new ones for every list, as the
    // one that plays recordings does, has nothing to listen to.
    bool areStarted() const;

    // How many more there are that this user may not read.
    std::int32_t unreadableCount() const;

    // Their names, for people to read.
    std::string names() const;

    // Passes everything on to the recorder from the moment in which the touchpads are started.
    // The recorder must last until they are stopped.
    void listen(Recorder& recorder);

private:
    template <typename Function>
    Function function(const char* name) const;

    const MultitouchDeviceManager& manager;
    std::vector<driver::Device> devices;
};

} // namespace glidemap::record
