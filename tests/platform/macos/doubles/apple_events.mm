#include "doubles/apple_events.h"

#include "doubles/journal.h"

#import <Foundation/NSAppleEventManager.h>
#include <gtest/gtest.h>
#include <objc/message.h>

#include <map>
#include <string>
#include <utility>

namespace {

struct Handler {
    id target; // not retained, as in the system
    SEL method;
};

using Event = std::pair<AEEventClass, AEEventID>;
std::map<Event, Handler> handlers;

// Formats a four-letter code as in the documentation.
std::string lettersOf(FourCharCode code) {
    std::string letters;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        letters += static_cast<char>(code >> shift & 0xFFU);
    }
    return letters;
}

void noteEvent(const std::string& what, AEEventClass eventClass, AEEventID eventID) {
    glidemap::test::note(what + " " + lettersOf(eventClass) + " " + lettersOf(eventID));
}

} // namespace

@implementation NSAppleEventDescriptor
@end

@implementation NSAppleEventManager
+ (NSAppleEventManager*)sharedAppleEventManager {
    static NSAppleEventManager* manager = [NSAppleEventManager new];
    return manager;
}
- (void)setEventHandler:(id)handler
            andSelector:(SEL)handleEventSelector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID {
    noteEvent("setEventHandler", eventClass, eventID);
    handlers[{eventClass, eventID}] = {handler, handleEventSelector};
}
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID {
    noteEvent("removeEventHandler", eventClass, eventID);
    EXPECT_EQ(handlers.erase({eventClass, eventID}), 1U) << "no handler";
}
@end

namespace {

bool send(AEEventID eventID) {
    const auto found = handlers.find({kCoreEventClass, eventID});
    if (found == handlers.end()) {
        return false;
    }
    const Handler handler = found->second;
    NSAppleEventDescriptor* event = [NSAppleEventDescriptor new];
    NSAppleEventDescriptor* reply = [NSAppleEventDescriptor new];
    using Handle = void (*)(id, SEL, NSAppleEventDescriptor*, NSAppleEventDescriptor*);
    // Casts through void*, because some compilers' -Wextra warns about casts between different
    // function types.
    void* const method = reinterpret_cast<void*>(objc_msg_lookup(handler.target, handler.method));
    reinterpret_cast<Handle>(method)(handler.target, handler.method, event, reply);
    [reply release];
    [event release];
    return true;
}

} // namespace

bool glidemap::test::sendReopen() {
    return send(kAEReopenApplication);
}

bool glidemap::test::sendQuit() {
    return send(kAEQuitApplication);
}
