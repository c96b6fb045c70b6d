// Locates the touch driver of macOS, the system's private trackpad framework, and reads the
// framework's device list, a Core Foundation array.
//
// Each call creates a list of new device objects, even for the same trackpads. If the devices of a
// second list were started while those of the first run, each trackpad would run twice. Therefore,
// macOS never reports that devices may have changed.
//
// Thread:  the main thread, on startup.
// Errors:  none; the device manager reports a framework that it cannot load.
#pragma once

#include "input/multitouch_device_manager.h"

namespace glidemap {

inline constexpr const char* multitouchSupport =
    "/System/Library/PrivateFrameworks/MultitouchSupport.framework/MultitouchSupport";

TouchDriverPlatform touchDriverPlatform();

} // namespace glidemap
