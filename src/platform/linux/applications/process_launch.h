// Starts the process of a desktop entry, detached from this process.
//
// Thread:  the desktop thread.
// Errors:  not reported to the caller.
#pragma once

#include <string>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

// Starts the Exec line, even if the entry supports D-Bus activation.
void startProcess(GDesktopAppInfo* entry);

// Opens the URL by D-Bus activation if the entry supports it, otherwise by its Exec line.
void openWith(GDesktopAppInfo* entry, const std::string& url);

} // namespace glidemap
