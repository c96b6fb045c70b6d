// Where the touch driver is on macOS, and how its device list is read: the system's private trackpad
// framework, whose list is one of Core Foundation's arrays.
//
// Thread:  the main thread, at start.
#pragma once

#include "input/multitouch_device_manager.h"

namespace glidemap {

inline constexpr const char* multitouchSupport =
    "/System/Library/PrivateFrameworks/MultitouchSupport.framework/MultitouchSupport";

TouchDriverPlatform touchDriverPlatform();

} // namespace glidemap
