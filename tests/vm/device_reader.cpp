#include "device_reader.h"

#include "deadline.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <ostream>

namespace glidemap::vm {

namespace {

std::string nameOf(const std::filesystem::path& inSys) {
    std::ifstream stream(inSys / "device" / "name");
    std::string name;
    std::getline(stream, name);
    return name;
}

// Whether udev has written down what it knows of the device, which it does at the end.
bool isKnownToUdev(const std::filesystem::path& inSys) {
    std::ifstream stream(inSys / "dev");
    std::string number;
    std::getline(stream, number);
    return std::filesystem::exists("/run/udev/data/c" + number);
}

// Looks again whenever a node or udev's record of one comes or goes.
bool waitForNodes(const std::function<bool()>& condition) {
    const int changes = inotify_init1(IN_CLOEXEC);
    std::filesystem::create_directories("/run/udev/data");
    inotify_add_watch(changes, "/dev/input", IN_CREATE | IN_DELETE | IN_ATTRIB);
    inotify_add_watch(changes, "/run/udev/data", IN_MOVED_TO | IN_CREATE | IN_DELETE);
    const Deadline deadline;
    bool holds = condition();
    while (!holds && !deadline.passed()) {
        pollfd waited{changes, POLLIN, 0};
        char happened[4096];
        if (poll(&waited, 1, deadline.milliseconds()) > 0 &&
            read(changes, happened, sizeof happened) < 0) {
            break;
        }
        holds = condition();
    }
    close(changes);
    return holds;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const DeviceEvent& event) {
    return stream << event.type << ":" << event.code << "=" << event.value;
}

std::vector<std::filesystem::path> nodesNamed(const std::string& name) {
    std::vector<std::filesystem::path> nodes;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/sys/class/input", error)) {
        if (entry.path().filename().string().starts_with("event") && nameOf(entry.path()) == name &&
            isKnownToUdev(entry.path())) {
            nodes.push_back("/dev/input" / entry.path().filename());
        }
    }
    std::ranges::sort(nodes);
    return nodes;
}

std::optional<std::filesystem::path> waitForNode(const std::string& name,
                                                 const std::filesystem::path& except) {
    std::vector<std::filesystem::path> nodes;
    const bool found = waitForNodes([&] {
        nodes = nodesNamed(name);
        std::erase(nodes, except);
        return !nodes.empty();
    });
    EXPECT_TRUE(found) << "there is no device \"" << name << "\"";
    return found ? std::optional(nodes.front()) : std::nullopt;
}

bool waitForNoNode(const std::filesystem::path& node) {
    return waitForNodes([&] { return !std::filesystem::exists(node); });
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
