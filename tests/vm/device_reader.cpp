#include "device_reader.h"

#include "deadline.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <ostream>
#include <utility>

namespace glidemap::vm {

std::ostream& operator<<(std::ostream& stream, const DeviceEvent& event) {
    return stream << event.type << ":" << event.code << "=" << event.value;
}

DeviceReader::DeviceReader(const std::filesystem::path& node)
    : descriptor(open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
    if (descriptor < 0) {
        ADD_FAILURE() << "cannot read " << node;
        return;
    }
    int clock = CLOCK_MONOTONIC;
    ioctl(descriptor, EVIOCSCLOCKID, &clock);
}

DeviceReader::~DeviceReader() {
    close(descriptor);
}

void DeviceReader::readAll() {
    input_event event{};
    while (read(descriptor, &event, sizeof event) == sizeof event) {
        const double time = static_cast<double>(event.input_event_sec) +
                            static_cast<double>(event.input_event_usec) / 1e6;
        seen.push_back({event.type, event.code, event.value, time});
    }
}

std::vector<DeviceEvent> DeviceReader::take() {
    readAll();
    return std::exchange(seen, {});
}

bool DeviceReader::waitUntil(const std::function<bool()>& condition) {
    const Deadline deadline;
    readAll();
    while (!condition()) {
        pollfd waited{descriptor, POLLIN, 0};
        if (deadline.passed() || poll(&waited, 1, deadline.milliseconds()) <= 0) {
            return false;
        }
        readAll();
        if ((waited.revents & (POLLHUP | POLLERR)) != 0) {
            return condition();
        }
    }
    return true;
}

bool DeviceReader::waitForKey(std::uint16_t code, std::int32_t value) {
    return waitUntil([&] {
        return std::ranges::find(seen, DeviceEvent{EV_KEY, code, value, 0}) != seen.end();
    });
}

std::vector<DeviceEvent> DeviceReader::keys() const {
    std::vector<DeviceEvent> found;
    std::ranges::copy_if(seen, std::back_inserter(found),
                         [](const DeviceEvent& event) { return event.type == EV_KEY; });
    return found;
}

// Who tries to grab it finds out; nobody else is disturbed by the moment in which we have it.
bool DeviceReader::isGrabbedByAnother() const {
    if (ioctl(descriptor, EVIOCGRAB, 1) != 0) {
        return true;
    }
    ioctl(descriptor, EVIOCGRAB, nullptr);
    return false;
}

} // namespace glidemap::vm
