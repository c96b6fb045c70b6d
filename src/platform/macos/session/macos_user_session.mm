#include "platform/macos/session/macos_user_session.h"

#include "platform/macos/core_foundation.h"
#include "platform/macos/workspace/workspace_notice.h"

#include <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>
#import <Foundation/NSDistributedNotificationCenter.h>

#include <functional>
#include <string_view>
#include <utility>

// The notification center calls a method of this object, and does not retain the object.
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

// Observes a notification that another process sends.
class DistributedNotice {
public:
    DistributedNotice(NSString* noticeName, std::function<void()> onNotice)
        : name(noticeName), callback(std::move(onNotice)),
          observer([[GlidemapDistributedObserver alloc] initWithCallback:&callback]) {
        // By default, the system would delay the notification until this program is frontmost.
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
    NSString* const name; // not retained: a string constant
    const std::function<void()> callback;
    GlidemapDistributedObserver* const observer;
};

constexpr std::string_view onConsoleKey = "kCGSSessionOnConsoleKey";
// This key is not documented. It is missing while the screen is unlocked.
constexpr std::string_view screenIsLockedKey = "CGSSessionScreenIsLocked";

// Returns null if the dictionary does not contain the key.
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
          // The screens wake only when the machine is awake. If the system does not send the
          // notification above, this notification ends the sleep state.
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
