// Starts the process of a desktop entry, detached from this process.
//
// Thread:  the desktop thread.
// Errors:  logged, not reported to the caller.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <string>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

// Runs the Exec line, even if the entry supports D-Bus activation. `url` is the URL to open, or
// empty.
void startProcess(GDesktopAppInfo* entry, const std::string& url, const LaunchToken& token);

} // namespace glidemap
