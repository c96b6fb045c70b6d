// A program that listens to an input device, as the system's own do.
//
// Units:   events as in recorded_pad.h, times in microseconds of the monotonic clock.
// Thread:  one.
// Owner:   a test.
// Errors:  what did not come in time is a failure of the test, and what came is answered.
#pragma once

#include "recorded_pad.h"

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <vector>

namespace glidemap::vm {

struct ReadFrame {
    EventFrame events; // without the synchronisation
    std::int64_t time = 0;
};

class EventReader {
public:
    explicit EventReader(const std::filesystem::path& node);
    EventReader(const EventReader&) = delete;
    EventReader& operator=(const EventReader&) = delete;
    ~EventReader();

    // Everything that can be read now, to the last whole frame.
    std::vector<ReadFrame> read();

    // Waits for a frame with such an event, and answers everything up to then.
    std::vector<ReadFrame> readUntil(const PadEvent& event);

    // Whether there is nothing to be read.
    bool isQuiet() const;

    // Whether the device is gone.
    bool waitUntilGone() const;

    // What the device holds, whoever listens to it.
    bool isPressed(int key) const;
    bool isTouched() const;
    std::vector<std::int32_t> slotValues(int axis) const;

    bool grab() const;
    void ungrab() const;

    int descriptor() const { return file; }

private:
    bool wait() const;

    int file = -1;
    ReadFrame open;
};

} // namespace glidemap::vm
