#include "platform/macos/shell/reopen_event.h"

#import <CoreServices/CoreServices.h>
#import <Foundation/Foundation.h>
#import <Foundation/NSAppleEventManager.h>

#include <utility>

// The system calls a handler by object and selector. It does not retain the object.
@interface GlidemapReopenTarget : NSObject {
    const std::function<void()>* told;
}
- (id)initTelling:(const std::function<void()>*)whom;
- (void)handleEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply;
@end

@implementation GlidemapReopenTarget

- (id)initTelling:(const std::function<void()>*)whom {
    self = [super init];
    if (self != nil) {
        told = whom;
    }
    return self;
}

- (void)handleEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply {
    const std::function<void()> call = *told; // the callback may destroy this
    call();
}

@end

namespace glidemap {

struct ReopenEvent::Handler {
    std::function<void()> onReopen;
    GlidemapReopenTarget* target;
};

ReopenEvent::ReopenEvent(std::function<void()> onReopen)
    : handler(std::make_unique<Handler>(Handler{std::move(onReopen), nil})) {
    handler->target = [[GlidemapReopenTarget alloc] initTelling:&handler->onReopen];
    const SEL method = @selector(handleEvent:withReplyEvent:);
    [[NSAppleEventManager sharedAppleEventManager] setEventHandler:handler->target
                                                       andSelector:method
                                                     forEventClass:kCoreEventClass
                                                        andEventID:kAEReopenApplication];
}

ReopenEvent::~ReopenEvent() {
    [[NSAppleEventManager sharedAppleEventManager]
        removeEventHandlerForEventClass:kCoreEventClass
                             andEventID:kAEReopenApplication];
    [handler->target release];
}

} // namespace glidemap
