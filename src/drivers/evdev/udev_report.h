// Describes the devices that resemble touchpads, as udev knows them, in human-readable lines. The
// lines omit serial numbers and addresses, because users publish them.
//
// Thread:  any. Opens no device except uinput, for writing, and creates no device.
// Errors:  reported as a line.
#pragma once

#include <string>
#include <vector>

namespace glidemap {

std::vector<std::string> reportOfDevices();

} // namespace glidemap
