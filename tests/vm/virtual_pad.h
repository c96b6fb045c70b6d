// A touchpad created with uinput, which other programs cannot distinguish from a real touchpad.
//
// Units:   events as in recorded_pad.h, times in microseconds of the monotonic clock.
// Thread:  one.
// Owner:   a test. The destructor and unplug() remove the device, as unplugging its cable would.
// Errors:  a device that cannot be created fails the test, and isPlugged() is false. An event that
//          cannot be written also fails the test.
#pragma once

#include "recorded_pad.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace glidemap::test {

class VirtualPad {
public:
    // Returns when udev has initialised the device. `port` is the touchpad's physical path, which
    // distinguishes two touchpads of the same model.
    explicit VirtualPad(PadShape shape, std::string port = "virtual/pad");
    VirtualPad(const VirtualPad&) = delete;
    VirtualPad& operator=(const VirtualPad&) = delete;
    ~VirtualPad();

    // Writes the events and a SYN_REPORT in one call. A kernel that accepts event times uses
    // `time`, or its own time if `time` is 0.
    void write(const EventFrame& frame, std::int64_t time = 0);

    // Presses and releases a button that every VirtualPad has and no recording uses. A reader that
    // has received the click has read all earlier events.
    void clickMarker();

    void unplug();
    void plugIn();

    bool isPlugged() const { return descriptor >= 0; }
    const std::filesystem::path& node() const { return _node; }
    const PadShape& shape() const { return _shape; }

private:
    bool create();

    PadShape _shape;
    std::string port;
    int descriptor = -1;
    std::filesystem::path _node;
};

} // namespace glidemap::test
