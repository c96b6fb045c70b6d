#include "doubles/workspace.h"

#include "doubles/journal.h"
#include "doubles/notification_center.h"

#import <AppKit/NSWorkspace.h>

#include <utility>

namespace glidemap::test {

Workspace& workspace() {
    static Workspace settings;
    return settings;
}

namespace {

NSWorkspace* theWorkspace;

NSString* stringOf(const std::optional<std::string>& text) {
    return text ? [NSString stringWithUTF8String:text->c_str()] : nil;
}

std::string textOf(NSString* string) {
    return string != nil ? [string UTF8String] : "nil";
}

} // namespace

} // namespace glidemap::test

using namespace glidemap::test;

NSNotificationName NSWorkspaceDidActivateApplicationNotification =
    @"NSWorkspaceDidActivateApplicationNotification";
NSNotificationName NSWorkspaceDidTerminateApplicationNotification =
    @"NSWorkspaceDidTerminateApplicationNotification";
NSNotificationName const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification =
    @"NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification";
NSNotificationName NSWorkspaceSessionDidBecomeActiveNotification =
    @"NSWorkspaceSessionDidBecomeActiveNotification";
NSNotificationName NSWorkspaceSessionDidResignActiveNotification =
    @"NSWorkspaceSessionDidResignActiveNotification";
NSNotificationName NSWorkspaceWillSleepNotification = @"NSWorkspaceWillSleepNotification";
NSNotificationName NSWorkspaceDidWakeNotification = @"NSWorkspaceDidWakeNotification";
NSNotificationName NSWorkspaceScreensDidWakeNotification = @"NSWorkspaceScreensDidWakeNotification";
NSString* const NSWorkspaceApplicationKey = @"NSWorkspaceApplicationKey";

@implementation RecordingNotificationCenter
- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)obj
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block {
    note("addObserverForName " + textOf(name) + (obj == nil ? "" : " of an object") +
         (queue == nil ? "" : " on a queue"));
    return [super addObserverForName:name object:obj queue:queue usingBlock:block];
}
- (void)removeObserver:(id)observer {
    note("removeObserver");
    if (workspace().atRemoval) {
        workspace().atRemoval();
    }
    [super removeObserver:observer];
}
@end

@interface NSRunningApplication (DoubleOfApplication)
+ (NSRunningApplication*)doubleOf:(const glidemap::test::RunningApplication&)application;
@end

@implementation NSRunningApplication
+ (NSRunningApplication*)doubleOf:(const glidemap::test::RunningApplication&)application {
    NSRunningApplication* made = [[[NSRunningApplication alloc] init] autorelease];
    made->identifier = [stringOf(application.bundleID) retain];
    made->name = [stringOf(application.name) retain];
    made->policy = application.policy == Policy::regular ? NSApplicationActivationPolicyRegular
                   : application.policy == Policy::accessory
                       ? NSApplicationActivationPolicyAccessory
                       : NSApplicationActivationPolicyProhibited;
    made->hasEnded = application.hasEnded ? YES : NO;
    return made;
}
- (void)dealloc {
    [identifier release];
    [name release];
    [super dealloc];
}
- (NSString*)bundleIdentifier {
    return identifier;
}
- (NSString*)localizedName {
    return name;
}
- (NSApplicationActivationPolicy)activationPolicy {
    return policy;
}
- (BOOL)isTerminated {
    return hasEnded;
}
@end

@implementation NSWorkspaceOpenConfiguration
+ (instancetype)configuration {
    return [[[self alloc] init] autorelease];
}
@end

@implementation NSWorkspace
+ (NSWorkspace*)sharedWorkspace {
    if (theWorkspace == nil && workspace().exists) {
        theWorkspace = [[NSWorkspace alloc] init];
        theWorkspace->center = [[RecordingNotificationCenter alloc] init];
    }
    return theWorkspace;
}
- (void)dealloc {
    [center release];
    [super dealloc];
}
- (NSNotificationCenter*)notificationCenter {
    return center;
}
- (NSRunningApplication*)frontmostApplication {
    note("frontmostApplication");
    const auto& application = workspace().frontmost;
    return application ? [NSRunningApplication doubleOf:*application] : nil;
}
- (NSArray*)runningApplications {
    note("runningApplications");
    std::vector<NSRunningApplication*> all;
    for (const auto& application : workspace().running) {
        all.push_back([NSRunningApplication doubleOf:application]);
    }
    return [NSArray arrayWithObjects:all.data() count:all.size()];
}
- (BOOL)openURL:(NSURL*)url {
    note("openURL " + textOf([url absoluteString]));
    return YES;
}
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^)(NSRunningApplication*, NSError*))completionHandler {
    const bool isConfiguration =
        [configuration isKindOfClass:[NSWorkspaceOpenConfiguration class]] != NO;
    note("openApplicationAtURL " + textOf([applicationURL absoluteString]) +
         (isConfiguration ? " configuration" : " no configuration") +
         (completionHandler == nullptr ? " no handler" : " handler"));
}
- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier {
    note("URLForApplicationWithBundleIdentifier " + textOf(bundleIdentifier));
    const auto found = workspace().installed.find(textOf(bundleIdentifier));
    return found != workspace().installed.end() ? [NSURL URLWithString:stringOf(found->second)]
                                                : nil;
}
- (BOOL)accessibilityDisplayShouldReduceMotion {
    note("accessibilityDisplayShouldReduceMotion");
    return workspace().reducesMotion;
}
@end

namespace glidemap::test {

void closeWorkspace() {
    [theWorkspace release];
    theWorkspace = nil;
}

void activate(std::optional<RunningApplication> application) {
    workspace().frontmost = std::move(application);
    const auto& now = workspace().frontmost;
    NSRunningApplication* const notified =
        [NSRunningApplication doubleOf:now ? *now : glidemap::test::RunningApplication{}];
    [[[NSWorkspace sharedWorkspace] notificationCenter]
        postNotificationName:NSWorkspaceDidActivateApplicationNotification
                      object:[NSWorkspace sharedWorkspace]
                    userInfo:[NSDictionary dictionaryWithObject:notified
                                                         forKey:NSWorkspaceApplicationKey]];
}

void end(const RunningApplication& application) {
    NSRunningApplication* const notified = [NSRunningApplication doubleOf:application];
    [[[NSWorkspace sharedWorkspace] notificationCenter]
        postNotificationName:NSWorkspaceDidTerminateApplicationNotification
                      object:[NSWorkspace sharedWorkspace]
                    userInfo:[NSDictionary dictionaryWithObject:notified
                                                         forKey:NSWorkspaceApplicationKey]];
}

void noticeAnActivationOnly() {
    [[[NSWorkspace sharedWorkspace] notificationCenter]
        postNotificationName:NSWorkspaceDidActivateApplicationNotification
                      object:[NSWorkspace sharedWorkspace]
                    userInfo:nil];
}

void postNotice(const char* name) {
    [[[NSWorkspace sharedWorkspace] notificationCenter]
        postNotificationName:stringOf(name)
                      object:[NSWorkspace sharedWorkspace]
                    userInfo:nil];
}

void setReducesMotion(bool reduces) {
    workspace().reducesMotion = reduces;
    postNotice("NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification");
}

} // namespace glidemap::test
