// Where the touch drivers are on Linux, and how their device lists are read.
//
// A program finds its drivers beside itself, in ../lib/glidemap, in the build tree as in an
// installation. The environment variable GLIDEMAP_TOUCH_DRIVER names another one by path.
//
// Thread:  the main thread, at start.
#pragma once

#include "input/multitouch_device_manager.h"

#include <string>
#include <string_view>

namespace glidemap {

// This program's own file, empty if the system does not tell.
std::string programFile();

// The real touchpads' driver, or the one that the environment names.
TouchDriverPlatform touchDriverPlatform();

// The driver at a path, whatever the environment says.
TouchDriverPlatform touchDriverPlatformAt(std::string libraryPath);

// The path of one of our own drivers: "evdev" or "replay".
std::string touchDriverPath(std::string_view driver);

} // namespace glidemap
