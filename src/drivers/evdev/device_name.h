// One more function of the evdev driver's C interface, beside those that every touch driver has:
// what a touchpad calls itself, for people to read.
//
// Thread:  any.
// Owner:   the driver; the text lasts as long as the device.
// Errors:  null for what is no device.
#pragma once

#include "input/touch_driver.h"

namespace glidemap::driver {

using DeviceName = const char* (*)(Device device);

inline constexpr const char* deviceNameSymbol = "GlidemapDeviceName";

} // namespace glidemap::driver
