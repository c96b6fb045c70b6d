// Describes the devices that resemble touchpads, as udev knows them, in lines for people. Serial numbers and
// addresses, which udev knows too, stay out: the lines are made to be published.
//
// Thread:  any. No device is opened but for writing to uinput, which makes none.
// Errors:  a line that says so.
#pragma once

#include <string>
#include <vector>

namespace glidemap {

std::vector<std::string> reportOfDevices();

} // namespace glidemap
