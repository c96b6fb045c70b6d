// Finds the touch driver on macOS and reads its device list: the system's private trackpad
// framework, which returns a Core Foundation array.
//
// Each list contains new device objects, even for the same trackpads. Starting a second list while
// devices run would start each trackpad twice. Therefore nothing on macOS reports that devices may
// have changed.
//
// Thread:  the main thread, on startup.
// Errors:  none here; the device manager reports a framework that it cannot load.
#pragma once

#include "input/multitouch_device_manager.h"

namespace glidemap {

inline constexpr const char* multitouchSupport =
    "/System/Library/PrivateFrameworks/MultitouchSupport.framework/MultitouchSupport";

TouchDriverPlatform touchDriverPlatform();

} // namespace glidemap
