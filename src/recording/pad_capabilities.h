// The device description at the start of an evemu or libinput recording, and its conversion into a
// PadDescription.
//
// Units:   the kernel's; resolutions in units per millimetre, 0 if unknown.
// Errors:  returned as a human-readable message, without file and line.
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
    std::uint64_t properties = 0; // bit n is set if the device has property n

    bool hasProperty(unsigned property) const { return (properties >> property & 1U) != 0; }
};

// Fills `pad`. Returns an error message if the device is not a pad with trackable contacts, or
// nullopt on success.
std::optional<std::string> describePad(const PadCapabilities& device, PadDescription& pad);

} // namespace glidemap
