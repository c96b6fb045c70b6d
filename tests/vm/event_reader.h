// Reads an input device as other programs do.
//
// Units:   events as in recorded_pad.h, times in microseconds of the monotonic clock.
// Thread:  one.
// Owner:   a test.
// Errors:  lost events, and a time-out of readUntil(), fail the test. After a time-out, readUntil()
//          returns the frames that arrived, and waitUntilGone() returns false.
#pragma once

#include "recorded_pad.h"

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <vector>

namespace glidemap::test {

struct ReadFrame {
    EventFrame events; // does not include the SYN_REPORT
    std::int64_t time = 0;
};

class EventReader {
public:
    explicit EventReader(const std::filesystem::path& node);
    EventReader(const EventReader&) = delete;
    EventReader& operator=(const EventReader&) = delete;
    ~EventReader();

    // Returns all frames that can be read now, up to the last complete frame.
    std::vector<ReadFrame> read();

    // Waits for a frame with the event, and returns all frames up to and including that frame.
    std::vector<ReadFrame> readUntil(const PadEvent& event);

    // Returns whether no event is pending.
    bool isQuiet() const;

    // Waits until the device is removed.
    bool waitUntilGone() const;

    // These functions query the device's current state in the kernel, regardless of the events that
    // have been read.
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

} // namespace glidemap::test
