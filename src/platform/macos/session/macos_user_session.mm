#include "platform/macos/session/macos_user_session.h"

#include "platform/macos/core_foundation.h"
#include "platform/macos/workspace/workspace_notice.h"

#include <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>
#import <Foundation/NSDistributedNotificationCenter.h>

#include <functional>
#include <string_view>
#include <utility>

// The center calls an observer by object and selector, and does not retain it.
@interface GlidemapDistributedObserver : NSObject {
    const std::function<void()>* callback;
}
- (id)initWithCallback:(const std::function<void()>*)onNotice;
- (void)receive:(NSNotification*)notice;
@end

@implementation GlidemapDistributedObserver

- (id)initWithCallback:(const std::function<void()>*)onNotice {
    self = [super init];
    if (self != nil) {
        callback = onNotice;
    }
    return self;
}

- (void)receive:(NSNotification*)notice {
    (*callback)();
}

@end

namespace glidemap {

namespace {

NSString* const screenIsLocked = @"com.apple.screenIsLocked";
NSString* const screenIsUnlocked = @"com.apple.screenIsUnlocked";

// Observes a notification from another process.
class DistributedNotice {
public:
    DistributedNotice(NSString* noticeName, std::function<void()> onNotice)
        : name(noticeName), callback(std::move(onNotice)),
          observer([[GlidemapDistributedObserver alloc] initWithCallback:&callback]) {
        // The default would hold the notification back until this program is frontmost.
        [[NSDistributedNotificationCenter defaultCenter]
                   addObserver:observer
                      selector:@selector(receive:)
                          name:name
                        object:nil
            suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
    }
    DistributedNotice(const DistributedNotice&) = delete;
    DistributedNotice& operator=(const DistributedNotice&) = delete;
    ~DistributedNotice() {
        [[NSDistributedNotificationCenter defaultCenter] removeObserver:observer
                                                                   name:name
                                                                 object:nil];
        [observer release];
    }

private:
    NSString* const name; // a constant of the program
    const std::function<void()> callback;
    GlidemapDistributedObserver* const observer;
};

constexpr std::string_view onConsoleKey = "kCGSSessionOnConsoleKey";
// Not documented. The key is missing while the screen is not locked.
constexpr std::string_view screenIsLockedKey = "CGSSessionScreenIsLocked";

// Null if the dictionary has no such key.
CFTypeRef valueIn(CFDictionaryRef dictionary, std::string_view key) {
    constexpr Boolean withoutMark = false;
    const Owned<CFStringRef> name(CFStringCreateWithBytes(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(key.data()),
        static_cast<CFIndex>(key.size()), kCFStringEncodingUTF8, withoutMark));
    return name ? CFDictionaryGetValue(dictionary, name.get()) : nullptr;
}

} // namespace

struct MacosUserSession::Following {
    explicit Following(MacosUserSession& to)
        : becameActive(NSWorkspaceSessionDidBecomeActiveNotification,
                       [&to](NSNotification* /*notice*/) { to.set(to.active, true); }),
          resignedActive(NSWorkspaceSessionDidResignActiveNotification,
                         [&to](NSNotification* /*notice*/) { to.set(to.active, false); }),
          willSleep(NSWorkspaceWillSleepNotification,
                    [&to](NSNotification* /*notice*/) { to.set(to.asleep, true); }),
          didWake(NSWorkspaceDidWakeNotification,
                  [&to](NSNotification* /*notice*/) { to.set(to.asleep, false); }),
          // Screens wake only with the machine. So a missed notification does not end the gestures.
          screensDidWake(NSWorkspaceScreensDidWakeNotification,
                         [&to](NSNotification* /*notice*/) { to.set(to.asleep, false); }),
          locked(screenIsLocked, [&to] { to.set(to.locked, true); }),
          unlocked(screenIsUnlocked, [&to] { to.set(to.locked, false); }) {}

    WorkspaceNotice becameActive;
    WorkspaceNotice resignedActive;
    WorkspaceNotice willSleep;
    WorkspaceNotice didWake;
    WorkspaceNotice screensDidWake;
    DistributedNotice locked;
    DistributedNotice unlocked;
};

MacosUserSession::MacosUserSession() : following(std::make_unique<Following>(*this)) {
    const Owned<CFDictionaryRef> session(CGSessionCopyCurrentDictionary());
    if (!session) {
        return;
    }
    active = valueIn(session.get(), onConsoleKey) != kCFBooleanFalse;
    const CFTypeRef lock = valueIn(session.get(), screenIsLockedKey);
    locked = lock != nullptr && lock != kCFBooleanFalse;
}

MacosUserSession::~MacosUserSession() = default;

void MacosUserSession::set(std::atomic<bool>& value, bool now) {
    if (value.exchange(now) != now) {
        changes().announceDidChange();
    }
}

} // namespace glidemap
