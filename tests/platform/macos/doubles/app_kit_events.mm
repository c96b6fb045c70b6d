#include "doubles/app_kit.h"
#include "doubles/journal.h"

#import <AppKit/AppKit.h>
#include <Block.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

namespace glidemap::test {

namespace {

using Handler = NSEvent* (^)(NSEvent*);

struct Monitor {
    id token;
    NSEventMask mask;
    Handler handler;
};
std::vector<Monitor> monitors;

auto monitorOf(id token) {
    return std::find_if(monitors.begin(), monitors.end(),
                        [token](const Monitor& monitor) { return monitor.token == token; });
}

std::vector<id> tokens() {
    std::vector<id> all;
    for (const Monitor& monitor : monitors) {
        all.push_back(monitor.token);
    }
    return all;
}

} // namespace

AppKit& appKit() {
    static AppKit settings;
    return settings;
}

std::size_t installedMonitors() {
    return monitors.size();
}

id addMonitor(NSEventMask mask, Handler handler) {
    std::ostringstream line;
    line << "addLocalMonitor " << std::hex << std::showbase << mask;
    note(line.str());
    if (!appKit().givesEventMonitors) {
        return nil;
    }
    monitors.push_back({[NSObject new], mask, Block_copy(handler)});
    return monitors.back().token;
}

// Releases the block immediately, even while it runs, so that tests detect later use of its
// captures.
void removeMonitor(id token) {
    note("removeMonitor");
    const auto found = monitorOf(token);
    if (found == monitors.end()) {
        ADD_FAILURE() << "not a monitor, or already removed";
        return;
    }
    const Monitor removed = *found;
    monitors.erase(found);
    Block_release(removed.handler);
    [removed.token release];
}

namespace {

bool isTaken(NSEvent* event) {
    for (id token : tokens()) {
        const auto found = monitorOf(token);
        if (found != monitors.end() && (found->mask & NSEventMaskKeyDown) != 0 &&
            found->handler(event) == nil) {
            return true;
        }
    }
    return false;
}

} // namespace

} // namespace glidemap::test

using namespace glidemap::test;

@interface NSEvent (Making)
- (id)initWith:(const KeyDown&)press;
@end

@implementation NSEvent
- (id)initWith:(const KeyDown&)press {
    self = [super init];
    if (self != nil) {
        code = press.keyCode;
        flags = static_cast<NSEventModifierFlags>(press.flags);
        repeats = press.repeats ? YES : NO;
    }
    return self;
}
- (NSEventModifierFlags)modifierFlags {
    return flags;
}
- (BOOL)isARepeat {
    return repeats;
}
- (unsigned short)keyCode {
    return code;
}
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                   handler:(NSEvent* (^)(NSEvent* event))block {
    return addMonitor(mask, block);
}
+ (void)removeMonitor:(id)eventMonitor {
    removeMonitor(eventMonitor);
}
@end

Receiver glidemap::test::play(const KeyDown& press) {
    NSEvent* event = [[NSEvent alloc] initWith:press];
    const bool taken = isTaken(event);
    [event release];
    return taken ? Receiver::monitor : Receiver::windows;
}
