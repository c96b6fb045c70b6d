// Starts the process of a desktop entry, detached from this process.
//
// Thread:  the desktop thread.
// Errors:  not reported to the caller; the log contains the reason.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <string>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

// Starts the Exec line, even if the entry supports D-Bus activation. `url` is the URL to open;
// empty for none.
void startProcess(GDesktopAppInfo* entry, const std::string& url, const LaunchToken& token);

} // namespace glidemap
