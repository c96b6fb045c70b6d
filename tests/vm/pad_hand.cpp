#include "pad_hand.h"

#include "deadline.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "real_time.h"

#include <gtest/gtest.h>
#include <linux/input.h>

namespace glidemap::test {

namespace {

// The report interval of a touchpad, in seconds. A hand moves in small steps, because programs
// interpret a jump as another finger.
constexpr double betweenReports = 0.008;

void append(EventFrame& frame, const EventFrame& more) {
    frame.insert(frame.end(), more.begin(), more.end());
}

} // namespace

PadHand& PadHand::down(int fingerCount) {
    constexpr std::int32_t between = 600; // 15 mm
    std::vector<std::pair<std::int32_t, std::int32_t>> places;
    for (int index = 0; index < fingerCount; ++index) {
        const std::int32_t aside = between * (2 * index - (fingerCount - 1)) / 2;
        places.emplace_back(ordinaryWidth / 2 + aside, ordinaryHeight / 2);
    }
    return downAt(std::move(places));
}

PadHand& PadHand::downAt(std::vector<std::pair<std::int32_t, std::int32_t>> places) {
    fingers = std::move(places);
    EventFrame frame;
    for (std::size_t slot = 0; slot < fingers.size(); ++slot) {
        append(frame, fingerDown(static_cast<std::int32_t>(slot), nextTrackingId++,
                                 fingers[slot].first, fingers[slot].second));
    }
    count(frame, true);
    write(frame);
    return *this;
}

PadHand& PadHand::move(std::int32_t dx, std::int32_t dy, int reports) {
    const Punctual hand;
    const auto begin = fingers;
    for (int report = 1; report <= reports; ++report) {
        EventFrame frame;
        for (std::size_t slot = 0; slot < fingers.size(); ++slot) {
            fingers[slot] = {begin[slot].first + dx * report / reports,
                             begin[slot].second + dy * report / reports};
            append(frame, fingerMove(static_cast<std::int32_t>(slot), fingers[slot].first,
                                     fingers[slot].second));
        }
        append(frame, {{EV_ABS, ABS_X, fingers[0].first}, {EV_ABS, ABS_Y, fingers[0].second}});
        pad.write(frame);
        pause(betweenReports);
    }
    return *this;
}

PadHand& PadHand::up() {
    EventFrame frame;
    for (std::size_t slot = 0; slot < fingers.size(); ++slot) {
        append(frame, fingerUp(static_cast<std::int32_t>(slot)));
    }
    count(frame, false);
    write(frame);
    fingers.clear();
    return *this;
}

// The kernel merges equal notifications. If the program has no permission to watch the clone's
// node, it can therefore miss that another program has opened the clone. The program then removes
// the clone and creates another clone later.
void PadHand::waitUntilTaken(DeviceReader& clone) {
    const Deadline deadline;
    while (clone.take().empty() && !deadline.passed()) {
        pause(0.02);
        pad.clickMarker();
        if (const auto nodes = cloneNodes(); clone.isGone() && !nodes.empty()) {
            clone.reopen(nodes.front());
        }
    }
    EXPECT_FALSE(deadline.passed()) << "the driver did not grab the touchpad";
}

void PadHand::count(EventFrame& frame, bool touching) const {
    frame.push_back({EV_KEY, BTN_TOUCH, touching ? 1 : 0});
    frame.push_back({EV_KEY, fingerTool(fingers.size()), touching ? 1 : 0});
    if (touching) {
        append(frame, {{EV_ABS, ABS_X, fingers[0].first}, {EV_ABS, ABS_Y, fingers[0].second}});
    }
}

// A real touchpad reports a frame from an interrupt, but a program's write can be suspended in the
// middle of a frame. The driver's own events could then change the slot of the remaining events.
void PadHand::write(const EventFrame& frame) const {
    const Punctual interrupt;
    pad.write(frame);
}

PadHand& PadHand::press() {
    write({{EV_KEY, BTN_LEFT, 1}});
    return *this;
}

PadHand& PadHand::release() {
    write({{EV_KEY, BTN_LEFT, 0}});
    return *this;
}

PadHand& PadHand::pause(double seconds) {
    letTimePassUntil(monotonicNow() + seconds);
    return *this;
}

} // namespace glidemap::test
