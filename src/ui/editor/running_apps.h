// The applications that the editor offers: those that run and have both an identifier and a name.
//
// Thread:  the main thread.
// Errors:  none; an application that lacks either is left out.
#pragma once

#include "dispatch/workspace.h"
#include "ui/editor/running_app.h"

#include <vector>

namespace glidemap {

// By name, as the user's locale sorts and without regard to case; equal names in the order in which
// the workspace has them. Computed anew at each call.
std::vector<RunningApp> runningApps(const Workspace& workspace);

// Those of them that can be launched: a window without an installed application cannot be opened again.
std::vector<RunningApp> launchableApps(const Workspace& workspace);

} // namespace glidemap
