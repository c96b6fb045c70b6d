// Reads an input device as other programs do, and waits for its events.
//
// Units:   events as in recorded_pad.h.
// Thread:  one.
// Owner:   a test.
// Errors:  a missing device fails the test. On a time-out, a wait returns false.
#pragma once

#include "recorded_pad.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

namespace glidemap::test {

class DeviceReader {
public:
    explicit DeviceReader(const std::filesystem::path& node);
    DeviceReader(const DeviceReader&) = delete;
    DeviceReader& operator=(const DeviceReader&) = delete;
    ~DeviceReader();

    // Returns whether the device was removed.
    bool isGone() const;
    // Closes the device and reads another one.
    void reopen(const std::filesystem::path& node);

    // Reads pending and later events until the condition holds.
    bool waitUntil(const std::function<bool()>& condition);
    bool waitForKey(std::uint16_t code, std::int32_t value);

    // Returns all events so far, with SYN_REPORT.
    const std::vector<PadEvent>& events() const { return seen; }
    std::vector<PadEvent> keys() const;
    void readAll();
    void forget() { seen.clear(); }

    // Returns the events since the last call.
    std::vector<PadEvent> take();

    bool isGrabbedByAnother() const;

private:
    int descriptor = -1;
    std::vector<PadEvent> seen;
};

} // namespace glidemap::test
