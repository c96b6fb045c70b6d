// The applications that the editor offers: running ones with an identifier and a name.
//
// Thread:  the main thread.
// Errors:  none; an application without either is omitted.
#pragma once

#include "dispatch/workspace.h"
#include "ui/editor/running_app.h"

#include <vector>

namespace glidemap {

// Sorted by name in the user's locale, ignoring case; equal names keep the workspace's order. Not
// cached.
std::vector<RunningApp> runningApps(const Workspace& workspace);

// Only the applications that can be launched: a window without an installed application cannot be
// reopened.
std::vector<RunningApp> launchableApps(const Workspace& workspace);

} // namespace glidemap
