// Launches applications from their desktop entries.
//
// A launched application is independent of this process. It gets its own session and, under
// systemd, its own unit, so that it keeps running when this process ends. It inherits no blocked
// signals, and no descriptors except standard output and standard error. When it exits, init reaps
// it.
//
// Thread:  the desktop thread. A function may return before the application has started.
// Errors:  logged, not reported to the caller.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <string>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

// `url` is the file URL of a desktop entry. If the application supports D-Bus activation and is
// already running, it is raised.
void launchApplication(const std::string& url);

// Launches the application of an entry that has already been read.
void launchApplication(GDesktopAppInfo* entry, const LaunchToken& token);

// Whether the entry supports D-Bus activation or startup notification.
bool acceptsLaunchToken(GDesktopAppInfo* entry);

// Opens the URL with the user's default handler for its scheme, or a file with the default handler
// for its type.
void launchHandler(const std::string& url);

} // namespace glidemap
