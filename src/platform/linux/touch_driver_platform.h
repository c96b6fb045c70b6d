// Finds the touch drivers on Linux, and reads their device lists.
//
// The drivers are in ../lib/glidemap, relative to the executable, both in the build tree and in an
// installation. The environment variable GLIDEMAP_TOUCH_DRIVER selects another driver by path.
//
// Thread:  the main thread, on startup.
#pragma once

#include "input/multitouch_device_manager.h"

#include <string>
#include <string_view>

namespace glidemap {

// The path of this executable; empty if the system does not report it.
std::string programFile();

// The driver for real touchpads, or the one in the environment variable.
TouchDriverPlatform touchDriverPlatform();

// The driver at a path; ignores the environment.
TouchDriverPlatform touchDriverPlatformAt(std::string libraryPath);

// The path of one of our own drivers: "evdev" or "replay".
std::string touchDriverPath(std::string_view driver);

} // namespace glidemap
