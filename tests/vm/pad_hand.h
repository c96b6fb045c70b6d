// A hand on the ordinary pad, which says all that a real touchpad says of it: the contacts, how
// many fingers they are, and the button under the pad.
//
// Units:   positions in the pad's own; times in seconds of the monotonic clock.
// Thread:  one.
// Owner:   a test; the pad outlives it.
#pragma once

#include "device_reader.h"
#include "virtual_pad.h"

#include <cstdint>
#include <vector>

namespace glidemap::vm {

class PadHand {
public:
    explicit PadHand(VirtualPad& itsPad) : pad(itsPad) {}

    // So many fingers, side by side in the middle of the pad.
    PadHand& down(int fingerCount);
    PadHand& downAt(std::vector<std::pair<std::int32_t, std::int32_t>> places);

    // All fingers, in so many reports.
    PadHand& move(std::int32_t dx, std::int32_t dy, int reports = 1);
    PadHand& up();

    PadHand& press();
    PadHand& release();

    PadHand& tap(int fingerCount) { return down(fingerCount).up(); }
    PadHand& click(int fingerCount) { return down(fingerCount).press().release().up(); }

    // Lets real time pass, as a person does between two gestures: what reads the pad tells a new
    // gesture from the rest of the one before by the clock.
    PadHand& pause(double seconds);

    // Until what the touchpad says comes from the clone, whose reader may then have heard of the
    // marker button.
    void waitUntilTaken(DeviceReader& clone);

private:
    void count(EventFrame& frame, bool touching) const;

    VirtualPad& pad;
    std::vector<std::pair<std::int32_t, std::int32_t>> fingers;
    std::int32_t nextTrackingId = 100;
};

} // namespace glidemap::vm
