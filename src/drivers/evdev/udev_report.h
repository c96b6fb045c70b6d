// Describes the devices that resemble touchpads in human-readable lines, from udev's data. Omits
// serial numbers and addresses, because users publish these lines.
//
// Thread:  any, one call at a time. Neither opens nor creates a device.
// Errors:  reported as a line.
#pragma once

#include <string>
#include <vector>

namespace glidemap {

std::vector<std::string> reportOfDevices();

} // namespace glidemap
