// Launches applications from their desktop entries.
//
// A launched application is independent of this process: it gets its own session and, under
// systemd, its own unit, so that it survives this process. It inherits no descriptor and no blocked
// signal, and init reaps it.
//
// Thread:  the desktop thread; returns before the application has started.
// Errors:  not reported to the caller.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <string>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

// Takes the file URL of a desktop entry. If a D-Bus activatable application already runs, it is
// brought forward.
void launchApplication(const std::string& url);

// Does the same for an entry that has already been read.
void launchApplication(GDesktopAppInfo* entry, const LaunchToken& token);

// Whether the entry supports D-Bus activation or startup notification.
bool acceptsLaunchToken(GDesktopAppInfo* entry);

// Opens the URL with the handler that the user has chosen for its scheme.
void launchHandler(const std::string& url);

} // namespace glidemap
