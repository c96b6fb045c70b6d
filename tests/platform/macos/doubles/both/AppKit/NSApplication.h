#pragma once

#include <AppKit/NSEvent.h>
#include <Foundation/Foundation.h>
#include <Foundation/NSObjCRuntime.h>
// This header uses types of the headers above.
#include <AppKit/NSRunningApplication.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

@interface NSApplication : NSObject
@property(class, readonly, strong) __kindof NSApplication* sharedApplication;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;
- (void)activateIgnoringOtherApps:(BOOL)flag;
@end

NS_ASSUME_NONNULL_END

#endif
