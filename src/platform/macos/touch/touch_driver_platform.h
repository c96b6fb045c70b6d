// Locates the touch driver of macOS, the system's private trackpad framework, and reads the
// framework's device list, a Core Foundation array.
//
// The framework creates new device objects for each list, even for the same trackpads. If the
// devices of a second list were started while the devices of the first list run, each contact would
// be reported twice. Therefore, the macOS services never report that devices may have changed.
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
