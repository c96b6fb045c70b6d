// A touchpad that exists only in the kernel's memory, made with uinput: to every other program it
// is a real one.
//
// Units:   events as in recorded_pad.h, times in microseconds of the monotonic clock.
// Thread:  one.
// Owner:   a test. Destroying it, or unplug(), takes the device away as pulling its cable would.
// Errors:  a device that cannot be made is a failure of the test (isPlugged() is false); so is an
// event that cannot be
//          written.
#pragma once

#include "recorded_pad.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace glidemap::vm {

class VirtualPad {
public:
    // Returns when udev has finished with the new device. `port` is where the pad says that it is
    // connected, which tells apart two pads of one model.
    explicit VirtualPad(PadShape shape, std::string port = "virtual/pad");
    VirtualPad(const VirtualPad&) = delete;
    VirtualPad& operator=(const VirtualPad&) = delete;
    ~VirtualPad();

    // The events and a synchronisation, handed over in one piece. A kernel that takes an event's
    // time from its writer takes this one, and its own where that is 0.
    void write(const EventFrame& frame, std::int64_t time = 0);

    // Presses and releases a button that every pad has and no recording uses: a reader that has
    // heard of it has read everything before it.
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

} // namespace glidemap::vm
