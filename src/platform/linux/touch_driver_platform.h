// Locates the touch drivers on Linux, and reads their device lists.
//
// The drivers are in ../lib/glidemap, relative to the executable's folder, both in the build tree
// and in an installation. The environment variable GLIDEMAP_TOUCH_DRIVER selects another driver by
// its path.
//
// Thread:  the main thread, on startup.
#pragma once

#include "input/multitouch_device_manager.h"

#include <string>
#include <string_view>

namespace glidemap {

// Returns the path of this executable; empty if the system does not report it.
std::string programFile();

// Returns the driver that GLIDEMAP_TOUCH_DRIVER names, or else the driver for real touchpads.
TouchDriverPlatform touchDriverPlatform();

// Returns the driver at this path, and ignores the environment.
TouchDriverPlatform touchDriverPlatformAt(std::string libraryPath);

// Returns the path of one of our own drivers, "evdev" or "replay".
std::string touchDriverPath(std::string_view driver);

} // namespace glidemap
