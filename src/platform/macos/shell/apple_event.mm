#include "platform/macos/shell/apple_event.h"

#import <CoreServices/CoreServices.h>
#import <Foundation/Foundation.h>
#import <Foundation/NSAppleEventManager.h>

#include <utility>

// The system calls a method of this object for each event, and does not retain the object.
@interface GlidemapEventTarget : NSObject {
    const std::function<void()>* callback;
}
- (id)initWithCallback:(const std::function<void()>*)onEvent;
- (void)handleEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply;
@end

@implementation GlidemapEventTarget

- (id)initWithCallback:(const std::function<void()>*)onEvent {
    self = [super init];
    if (self != nil) {
        callback = onEvent;
    }
    return self;
}

- (void)handleEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply {
    // Calls a copy, because the callback may destroy this object.
    const std::function<void()> call = *callback;
    call();
}

@end

namespace glidemap {

namespace {

AEEventID identifierOf(AppleEvent::Kind kind) {
    return kind == AppleEvent::Kind::reopen ? kAEReopenApplication : kAEQuitApplication;
}

} // namespace

struct AppleEvent::Handler {
    std::function<void()> onEvent;
    AEEventID identifier;
    GlidemapEventTarget* target;
};

AppleEvent::AppleEvent(Kind kind, std::function<void()> onEvent)
    : handler(std::make_unique<Handler>(Handler{std::move(onEvent), identifierOf(kind), nil})) {
    handler->target = [[GlidemapEventTarget alloc] initWithCallback:&handler->onEvent];
    const SEL method = @selector(handleEvent:withReplyEvent:);
    [[NSAppleEventManager sharedAppleEventManager] setEventHandler:handler->target
                                                       andSelector:method
                                                     forEventClass:kCoreEventClass
                                                        andEventID:handler->identifier];
}

AppleEvent::~AppleEvent() {
    [[NSAppleEventManager sharedAppleEventManager]
        removeEventHandlerForEventClass:kCoreEventClass
                             andEventID:handler->identifier];
    [handler->target release];
}

} // namespace glidemap
