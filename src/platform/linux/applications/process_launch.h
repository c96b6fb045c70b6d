// Starts a desktop entry's own process, cut loose from ours.
//
// Thread:  the desktop thread.
// Errors:  none reach the caller.
#pragma once

#include <string>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

// By its Exec line, even if D-Bus could activate it.
void startProcess(GDesktopAppInfo* entry);

// By D-Bus if the entry wants it, else by its Exec line.
void openWith(GDesktopAppInfo* entry, const std::string& url);

} // namespace glidemap
