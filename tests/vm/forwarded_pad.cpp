#include "forwarded_pad.h"

#include "input_devices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace glidemap::test {

bool contains(const std::vector<ReadFrame>& frames, const PadEvent& event) {
    return std::ranges::any_of(frames, [&event](const ReadFrame& frame) {
        return std::ranges::find(frame.events, event) != frame.events.end();
    });
}

std::vector<EventFrame> framesWithoutMarker(const std::vector<ReadFrame>& frames) {
    std::vector<EventFrame> result;
    for (const ReadFrame& frame : frames) {
        if (frame.events.size() != 1 || frame.events[0].code != BTN_MIDDLE) {
            result.push_back(frame.events);
        }
    }
    return result;
}

ForwardedPad::ForwardedPad(PadShape shape) : pad(std::move(shape)) {}

void ForwardedPad::switchOn() {
    filter.switchOn(true);
    readNewClone();
}

void ForwardedPad::readNewClone() {
    clone.reset(); // like a desktop, which closes a removed device before it opens the next device
    clone = std::make_unique<EventReader>(waitForClone());
    filter.waitUntilIntroduced();
}

void ForwardedPad::switchOff() {
    filter.switchOn(false);
    session.waitUntilAsleep();
}

std::vector<ReadFrame> ForwardedPad::readClone() {
    pad.clickMarker();
    return clone->readUntil(markerUp);
}

} // namespace glidemap::test
