#include "event_reader.h"

#include "deadline.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ostream>
#include <utility>

namespace glidemap::test {

EventReader::EventReader(const std::filesystem::path& node)
    : file(::open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
    int clock = CLOCK_MONOTONIC;
    if (file < 0 || ioctl(file, EVIOCSCLOCKID, &clock) != 0) {
        ADD_FAILURE() << "cannot read " << node << ": " << std::strerror(errno);
    }
}

EventReader::~EventReader() {
    close(file);
}

std::vector<ReadFrame> EventReader::read() {
    std::vector<ReadFrame> frames;
    std::array<input_event, 64> events{};
    ssize_t size = 0;
    while ((size = ::read(file, events.data(), sizeof events)) > 0) {
        const std::size_t count = static_cast<std::size_t>(size) / sizeof(input_event);
        for (std::size_t index = 0; index < count; ++index) {
            const input_event& event = events[index];
            EXPECT_FALSE(event.type == EV_SYN && event.code == SYN_DROPPED)
                << "the test lost events because it was too slow";
            if (event.type == EV_SYN) {
                open.time = event.input_event_sec * 1000000 + event.input_event_usec;
                frames.push_back(std::exchange(open, {}));
            } else {
                open.events.push_back({event.type, event.code, event.value});
            }
        }
    }
    return frames;
}

bool EventReader::wait() const {
    pollfd source{file, POLLIN, 0};
    return poll(&source, 1, Deadline().milliseconds()) > 0 && (source.revents & POLLIN) != 0;
}

std::vector<ReadFrame> EventReader::readUntil(const PadEvent& event) {
    std::vector<ReadFrame> all;
    while (wait()) {
        for (ReadFrame& frame : read()) {
            all.push_back(std::move(frame));
            if (std::ranges::find(all.back().events, event) != all.back().events.end()) {
                return all;
            }
        }
    }
    ADD_FAILURE() << "timed out waiting for " << event << ", after " << all.size() << " frames";
    return all;
}

bool EventReader::isQuiet() const {
    pollfd source{file, POLLIN, 0};
    return poll(&source, 1, 0) == 0;
}

bool EventReader::waitUntilGone() const {
    pollfd source{file, 0, 0};
    return poll(&source, 1, Deadline().milliseconds()) > 0 && (source.revents & POLLHUP) != 0;
}

bool EventReader::isPressed(int key) const {
    std::array<unsigned char, KEY_CNT / 8> bits{};
    EXPECT_GE(ioctl(file, EVIOCGKEY(bits.size()), bits.data()), 0);
    const auto number = static_cast<std::size_t>(key);
    return (bits[number / 8] >> (number % 8) & 1) != 0;
}

std::vector<std::int32_t> EventReader::slotValues(int axis) const {
    std::array<std::int32_t, 65> slots{};
    slots[0] = axis;
    input_absinfo slot{};
    EXPECT_GE(ioctl(file, EVIOCGABS(ABS_MT_SLOT), &slot), 0);
    EXPECT_GE(ioctl(file, EVIOCGMTSLOTS(sizeof slots), slots.data()), 0);
    return {slots.begin() + 1, slots.begin() + 2 + slot.maximum};
}

bool EventReader::isTouched() const {
    return std::ranges::any_of(slotValues(ABS_MT_TRACKING_ID),
                               [](std::int32_t id) { return id >= 0; });
}

bool EventReader::grab() const {
    return ioctl(file, EVIOCGRAB, 1) == 0;
}

void EventReader::ungrab() const {
    ioctl(file, EVIOCGRAB, 0);
}

} // namespace glidemap::test
