// Reads an input device as any other program does, and waits for what it says.
//
// Units:   codes and values as the kernel has them; times in seconds of the monotonic clock.
// Thread:  one.
// Owner:   a test.
// Errors:  a device that is not there, or what did not come in time, is a failure of the test.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <vector>

namespace glidemap::vm {

struct DeviceEvent {
    std::uint16_t type = 0;
    std::uint16_t code = 0;
    std::int32_t value = 0;
    double time = 0; // not compared: two devices never say a thing at the same moment

    friend bool operator==(const DeviceEvent& one, const DeviceEvent& other) {
        return one.type == other.type && one.code == other.code && one.value == other.value;
    }
};
std::ostream& operator<<(std::ostream& stream, const DeviceEvent& event);

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
    const std::vector<DeviceEvent>& events() const { return seen; }
    std::vector<DeviceEvent> keys() const;
    void readAll();
    void forget() { seen.clear(); }

    // What has come since it was last asked.
    std::vector<DeviceEvent> take();

    bool isGrabbedByAnother() const;

private:
    int descriptor = -1;
    std::vector<DeviceEvent> seen;
};

} // namespace glidemap::vm
