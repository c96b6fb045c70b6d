// Lists the applications that the editor offers: running applications with an identifier and a
// name.
//
// Thread:  the main thread.
// Errors:  none; an application without an identifier or a name is omitted.
#pragma once

#include "dispatch/workspace.h"
#include "ui/editor/running_app.h"

#include <vector>

namespace glidemap {

// Sorts by name in the user's locale, ignoring case. Applications with equal names keep the
// workspace's order. The result is not cached.
std::vector<RunningApp> runningApps(const Workspace& workspace);

// Returns only the applications that can be launched: a window may belong to a program that is not
// installed as an application and cannot be started again.
std::vector<RunningApp> launchableApps(const Workspace& workspace);

} // namespace glidemap
