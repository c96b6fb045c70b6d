#include "doubles/observation.h"

#include <Block.h>
#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using Block = void (^)(NSNotification*);

struct DoubleOfRegistrations {
    struct One {
        NSObject* observer;
        NSString* name;
        Block block;
    };

    static void release(const One& one) {
        [one.observer release];
        [one.name release];
        Block_release(one.block);
    }

    std::vector<One> all;
};

@implementation NSNotification
+ (instancetype)notificationWithName:(NSNotificationName)aName
                              object:(id)anObject
                            userInfo:(NSDictionary*)aUserInfo {
    NSNotification* made = [[[self alloc] init] autorelease];
    made->ownName = [aName retain];
    made->ownObject = [anObject retain];
    made->ownUserInfo = [aUserInfo retain];
    return made;
}
- (void)dealloc {
    [ownName release];
    [ownObject release];
    [ownUserInfo release];
    [super dealloc];
}
- (NSString*)name {
    return ownName;
}
- (id)object {
    return ownObject;
}
- (NSDictionary*)userInfo {
    return ownUserInfo;
}
@end

@implementation NSNotificationCenter
- (id)init {
    registrations = new DoubleOfRegistrations;
    return self;
}
- (void)dealloc {
    EXPECT_EQ(registrations->all.size(), 0U) << "observers that were not removed";
    for (const auto& one : registrations->all) {
        DoubleOfRegistrations::release(one);
    }
    delete registrations;
    [super dealloc];
}
- (void)postNotificationName:(NSNotificationName)aName
                      object:(id)anObject
                    userInfo:(NSDictionary*)aUserInfo {
    NSNotification* const notice = [NSNotification notificationWithName:aName
                                                                 object:anObject
                                                               userInfo:aUserInfo];
    const auto notified = registrations->all;
    for (const auto& one : notified) {
        if (one.name == nil || [one.name isEqualToString:aName]) {
            one.block(notice);
        }
    }
}
- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)obj
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block {
    EXPECT_EQ(obj, nil);
    EXPECT_EQ(queue, static_cast<NSOperationQueue*>(nil)) << "the fake supports no queues";
    NSObject* const observer = [[[NSObject alloc] init] autorelease];
    registrations->all.push_back({[observer retain], [name retain], Block_copy(block)});
    return observer;
}
- (void)removeObserver:(id)observer {
    auto& all = registrations->all;
    const auto one = std::find_if(all.begin(), all.end(), [observer](const auto& candidate) {
        return candidate.observer == observer;
    });
    if (one == all.end()) {
        ADD_FAILURE() << "removed, but never added";
        return;
    }
    const auto removed = *one;
    all.erase(one);
    DoubleOfRegistrations::release(removed);
}
@end

namespace {

struct Observation {
    NSObject* observed;
    NSObject* observer; // not retained, as in the system
    NSString* key;
    NSKeyValueObservingOptions options;
    void* context;
};

std::vector<Observation> observations;

NSString* ownKey(NSString* key) {
    return [[NSString alloc] initWithBytes:[key UTF8String]
                                    length:[key length]
                                  encoding:NSUTF8StringEncoding];
}

} // namespace

namespace glidemap::test {

std::size_t forgetObservations() {
    for (const Observation& one : observations) {
        [one.key release];
    }
    return std::exchange(observations, {}).size();
}

} // namespace glidemap::test

@implementation NSObject (NSKeyValueObserving)
- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary*)change
                       context:(void*)context {
    (void)object;
    (void)change;
    (void)context;
    ADD_FAILURE() << "no observer handles a change of " << [keyPath UTF8String];
}
@end

@implementation NSObject (NSKeyValueObserverRegistration)
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(void*)context {
    observations.push_back({self, observer, ownKey(keyPath), options, context});
    if ((options & NSKeyValueObservingOptionInitial) != 0) {
        [observer observeValueForKeyPath:keyPath ofObject:self change:nil context:context];
    }
}
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath context:(void*)context {
    const auto one = std::find_if(observations.begin(), observations.end(), [&](const auto& each) {
        return each.observed == self && each.observer == observer && each.context == context &&
               [each.key isEqualToString:keyPath];
    });
    if (one == observations.end()) {
        ADD_FAILURE() << "removed, but never added: " << [keyPath UTF8String];
        return;
    }
    [one->key release];
    observations.erase(one);
}
@end

@implementation NSObject (NSKeyValueObserverNotification)
- (void)willChangeValueForKey:(NSString*)key {
    (void)key; // no observer requests the old value
}
- (void)didChangeValueForKey:(NSString*)key {
    const auto notified = observations;
    for (const Observation& one : notified) {
        if (one.observed == self && [one.key isEqualToString:key]) {
            [one.observer observeValueForKeyPath:one.key
                                        ofObject:self
                                          change:[NSDictionary dictionary]
                                         context:one.context];
        }
    }
}
@end
