// Converts an NSRunningApplication to an Application. For Objective-C++ only.
//
// Thread:  the main thread, on which the system updates these objects.
// Errors:  none. A field is nullopt if the application lacks the property; for nil, both fields
//          are nullopt.
#pragma once

#ifdef __OBJC__

#include "dispatch/workspace.h"

#import <AppKit/AppKit.h>

namespace glidemap {

Application applicationOf(NSRunningApplication* running);

} // namespace glidemap

#endif
