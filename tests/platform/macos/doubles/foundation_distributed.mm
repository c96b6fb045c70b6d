#include "doubles/distributed.h"
#include "doubles/journal.h"

#import <Foundation/NSDistributedNotificationCenter.h>
#include <gtest/gtest.h>
#include <objc/message.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

struct Registration {
    id observer; // not retained, as in the system
    SEL method;
    std::string name;
    bool isImmediate;
};

std::vector<Registration> observers;

} // namespace

@implementation NSDistributedNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter {
    static NSDistributedNotificationCenter* center = [NSDistributedNotificationCenter new];
    return center;
}
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSNotificationName)name
                object:(NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)suspensionBehavior {
    EXPECT_EQ(object, nil);
    glidemap::test::note(std::string("addDistributedObserver ") + [name UTF8String]);
    observers.push_back({observer, selector, [name UTF8String],
                         suspensionBehavior == NSNotificationSuspensionBehaviorDeliverImmediately});
}
- (void)removeObserver:(id)observer name:(NSNotificationName)aName object:(NSString*)anObject {
    EXPECT_EQ(anObject, nil);
    glidemap::test::note(std::string("removeDistributedObserver ") + [aName UTF8String]);
    const std::string name = [aName UTF8String];
    EXPECT_EQ(std::erase_if(observers,
                            [&](const Registration& one) {
                                return one.observer == observer && one.name == name;
                            }),
              1U)
        << "no such observer";
}
@end

void glidemap::test::makeDistributedCenter() {
    [NSDistributedNotificationCenter defaultCenter];
}

void glidemap::test::postDistributed(const char* name) {
    NSNotification* const notice =
        [NSNotification notificationWithName:[NSString stringWithUTF8String:name]
                                      object:nil
                                    userInfo:nil];
    const auto notified = observers;
    for (const Registration& one : notified) {
        if (one.isImmediate && one.name == name) {
            using Receive = void (*)(id, SEL, NSNotification*);
            // Casts through void*, because some compilers' -Wextra warns about casts between
            // different function types.
            void* const method = reinterpret_cast<void*>(objc_msg_lookup(one.observer, one.method));
            reinterpret_cast<Receive>(method)(one.observer, one.method, notice);
        }
    }
}
