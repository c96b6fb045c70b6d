#pragma once

#include <AppKit/NSRunningApplication.h>
#include <Foundation/Foundation.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

extern NSNotificationName NSWorkspaceDidActivateApplicationNotification;
extern NSNotificationName NSWorkspaceDidTerminateApplicationNotification;
extern NSNotificationName const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification;
extern NSNotificationName NSWorkspaceSessionDidBecomeActiveNotification;
extern NSNotificationName NSWorkspaceSessionDidResignActiveNotification;
extern NSNotificationName NSWorkspaceWillSleepNotification;
extern NSNotificationName NSWorkspaceDidWakeNotification;
extern NSNotificationName NSWorkspaceScreensDidWakeNotification;
extern NSString* const NSWorkspaceApplicationKey;

@interface NSWorkspaceOpenConfiguration : NSObject
+ (instancetype)configuration;
@end

@interface NSWorkspace : NSObject {
    NSNotificationCenter* center;
}
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@property(nullable, readonly, strong) NSRunningApplication* frontmostApplication;
- (BOOL)openURL:(NSURL*)url;
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^_Nullable)(NSRunningApplication* _Nullable app,
                                                NSError* _Nullable error))completionHandler;
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
@end

@interface NSWorkspace (NSWorkspaceRunningApplications)
@property(readonly, copy) NSArray<NSRunningApplication*>* runningApplications;
@end

@interface NSWorkspace (NSWorkspaceAccessibilityDisplay)
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion;
@end

NS_ASSUME_NONNULL_END

#endif
