#include "device_reader.h"

#include "deadline.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace glidemap::test {

namespace {

int opened(const std::filesystem::path& node) {
    const int descriptor = open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        ADD_FAILURE() << "cannot read " << node;
    }
    return descriptor;
}

} // namespace

DeviceReader::DeviceReader(const std::filesystem::path& node) : descriptor(opened(node)) {}

DeviceReader::~DeviceReader() {
    close(descriptor);
}

bool DeviceReader::isGone() const {
    int version = 0;
    return ioctl(descriptor, EVIOCGVERSION, &version) != 0;
}

void DeviceReader::reopen(const std::filesystem::path& node) {
    close(descriptor);
    descriptor = opened(node);
}

void DeviceReader::readAll() {
    input_event event{};
    while (read(descriptor, &event, sizeof event) == sizeof event) {
        seen.push_back({event.type, event.code, event.value});
    }
}

std::vector<PadEvent> DeviceReader::take() {
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
        return std::ranges::find(seen, PadEvent{EV_KEY, code, value}) != seen.end();
    });
}

std::vector<PadEvent> DeviceReader::keys() const {
    std::vector<PadEvent> found;
    std::ranges::copy_if(seen, std::back_inserter(found),
                         [](const PadEvent& event) { return event.type == EV_KEY; });
    return found;
}

// Tries to grab the device for a moment. During that moment, other programs cannot grab the device,
// and they receive none of its events.
bool DeviceReader::isGrabbedByAnother() const {
    if (ioctl(descriptor, EVIOCGRAB, 1) != 0) {
        return true;
    }
    ioctl(descriptor, EVIOCGRAB, nullptr);
    return false;
}

} // namespace glidemap::test
