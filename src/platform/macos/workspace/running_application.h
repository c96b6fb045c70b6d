// Converts the system's running application to Application. For Objective-C++ only.
//
// Thread:  the main thread, where the system changes it.
// Errors:  none: missing properties are absent, and nil has none.
#pragma once

#ifdef __OBJC__

#include "dispatch/workspace.h"

#import <AppKit/AppKit.h>

namespace glidemap {

Application applicationOf(NSRunningApplication* running);

} // namespace glidemap

#endif
