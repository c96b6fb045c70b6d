// What the head of a foreign recording tells of the device it was made on, and the touchpad that
// this describes.
//
// Units:   as the kernel has them; resolutions in units per millimetre, 0 where unknown.
// Errors:  answered as a message for people, without file and line.
#pragma once

#include "drivers/contact/pad_description.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace glidemap {

struct PadCapabilities {
    std::string name;
    std::map<std::uint16_t, AxisRange> axes;
    std::uint64_t properties = 0; // bit n: INPUT_PROP n

    bool hasProperty(unsigned property) const { return (properties >> property & 1U) != 0; }
};

// Answers why the device is no pad whose contacts can be followed, or fills `pad`.
std::optional<std::string> describePad(const PadCapabilities& device, PadDescription& pad);

} // namespace glidemap
