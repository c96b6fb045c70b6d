// Extends the touch driver's C interface, in the evdev driver only: returns a touchpad's
// human-readable name.
//
// Thread:  any.
// Owner:   the driver; the text is valid as long as the device exists.
// Errors:  returns null if the device does not exist.
#pragma once

#include "input/touch_driver.h"

namespace glidemap::driver {

using DeviceName = const char* (*)(Device device);

inline constexpr const char* deviceNameSymbol = "GlidemapDeviceName";

} // namespace glidemap::driver
