// A hand on a touchpad like ordinaryPad(). Writes the events that a real touchpad would send: the
// contacts, the number of fingers, and the button.
//
// Units:   positions in units of the pad; times in seconds of the monotonic clock.
// Thread:  one.
// Owner:   a test; the pad must outlive it.
#pragma once

#include "device_reader.h"
#include "virtual_pad.h"

#include <cstdint>
#include <vector>

namespace glidemap::test {

class PadHand {
public:
    explicit PadHand(VirtualPad& pad) : pad(pad) {}

    // Puts the fingers down, next to each other in the middle of the touchpad.
    PadHand& down(int fingerCount);
    PadHand& downAt(std::vector<std::pair<std::int32_t, std::int32_t>> places);

    // Moves all fingers. The touchpad sends `reports` reports.
    PadHand& move(std::int32_t dx, std::int32_t dy, int reports = 1);
    PadHand& up();

    PadHand& press();
    PadHand& release();

    PadHand& tap(int fingerCount) { return down(fingerCount).up(); }
    PadHand& click(int fingerCount) { return down(fingerCount).press().release().up(); }

    // Lets real time pass, as a person does between two gestures, because programs that read the
    // touchpad separate gestures by the clock.
    PadHand& pause(double seconds);

    // Clicks the marker button until the clone forwards the touchpad. Other readers of the clone
    // may therefore have received events of the marker button.
    void waitUntilTaken(DeviceReader& clone);

private:
    void count(EventFrame& frame, bool touching) const;
    void write(const EventFrame& frame) const;

    VirtualPad& pad;
    std::vector<std::pair<std::int32_t, std::int32_t>> fingers;
    std::int32_t nextTrackingId = 100;
};

} // namespace glidemap::test
