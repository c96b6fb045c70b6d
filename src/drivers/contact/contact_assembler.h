// Turns a touchpad's kernel events (multitouch protocol B: slots and tracking ids) into contact records, one report for
// each synchronisation. The evdev driver and the readers of foreign recordings share it, so that a recording means the
// same as the pad it was made on.
//
// Units:   event times in seconds; records as in input/mt_touch.h, millimetres in `absolute` where the resolution is
//          known.
// Thread:  one; holds no lock.
// Owner:   one for each touchpad.
// Errors:  none; impossible events (slots that do not exist, values outside the range) are ignored or clamped.
#pragma once

#include "drivers/contact/pad_description.h"
#include "input/mt_touch.h"

#include <cstdint>
#include <span>
#include <vector>

namespace glidemap {

// A kernel input event.
struct InputEvent {
    double time = 0;
    std::uint16_t type = 0;
    std::uint16_t code = 0;
    std::int32_t value = 0;
};

// A physical button of the pad: 0 left, 1 right, 2 middle.
struct ButtonChange {
    std::int32_t button = 0;
    bool down = false;

    friend bool operator==(const ButtonChange&, const ButtonChange&) = default;
};

// What one synchronisation brought. Valid until the next event is handled.
struct PadFrame {
    double timestamp = 0;
    bool contactsChanged = false; // otherwise there is nothing to report
    std::span<const MTTouch> contacts;
    std::span<const ButtonChange> buttons;
};

} // namespace glidemap
