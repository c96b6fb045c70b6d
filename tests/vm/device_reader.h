// Reads an input device as any other program does, and waits for what it says.
//
// Units:   events as in recorded_pad.h.
// Thread:  one.
// Owner:   a test.
// Errors:  a device that is not there, or what did not come in time, is a failure of the test.
#pragma once

#include "recorded_pad.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

namespace glidemap::vm {

class DeviceReader {
public:
    explicit DeviceReader(const std::filesystem::path& node);
    DeviceReader(const DeviceReader&) = delete;
    DeviceReader& operator=(const DeviceReader&) = delete;
    ~DeviceReader();

    // What there is, and then what comes, until the condition holds.
    bool waitUntil(const std::function<bool()>& condition);
    bool waitForKey(std::uint16_t code, std::int32_t value);

    // Everything so far, synchronisations included.
    const std::vector<PadEvent>& events() const { return seen; }
    std::vector<PadEvent> keys() const;
    void readAll();
    void forget() { seen.clear(); }

    // What has come since it was last asked.
    std::vector<PadEvent> take();

    bool isGrabbedByAnother() const;

private:
    int descriptor = -1;
    std::vector<PadEvent> seen;
};

} // namespace glidemap::vm
