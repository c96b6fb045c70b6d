// Launches applications by their desktop entries.
//
// What is launched is on its own: a session and, where systemd runs one's session, a unit of its
// own, so that it does not end with us; no descriptor of ours, no blocked signal; and it is nobody's
// to wait for.
//
// Thread:  the desktop thread; returns before the application is there.
// Errors:  none reach the caller.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <string>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

// The URL of a desktop entry's file. One that D-Bus can activate comes forward if it runs.
void launchApplication(const std::string& url);

// The same for an entry that has been read.
void launchApplication(GDesktopAppInfo* entry, const LaunchProof& proof);

// Whether the entry says that its application takes notice of what proves that the user has launched it.
bool takesProof(GDesktopAppInfo* entry);

// Whatever the user has chosen for such a URL.
void launchHandler(const std::string& url);

} // namespace glidemap
