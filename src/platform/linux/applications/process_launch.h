// Starts the process of a desktop entry, detached from this process.
//
// Thread:  the desktop thread.
// Errors:  none reach the caller; the log says why nothing was started.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <string>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

// By its Exec line, even if D-Bus could activate it. `url` is what it is to open; empty for nothing.
void startProcess(GDesktopAppInfo* entry, const std::string& url, const LaunchProof& proof);

} // namespace glidemap
