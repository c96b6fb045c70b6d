// What the system tells of an application. For Objective-C++ only.
//
// Thread:  the main thread, where the system changes it.
// Errors:  none: what it does not tell, and all of one that is not, is absent.
#pragma once

#ifdef __OBJC__

#include "dispatch/workspace.h"

#import <AppKit/AppKit.h>

namespace glidemap {

Application applicationOf(NSRunningApplication* running);

} // namespace glidemap

#endif
