#pragma once

#include <Foundation/Foundation.h>
#include <Foundation/NSObjCRuntime.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSUInteger, NSNotificationSuspensionBehavior) {
    NSNotificationSuspensionBehaviorDrop = 1,
    NSNotificationSuspensionBehaviorCoalesce = 2,
    NSNotificationSuspensionBehaviorHold = 3,
    NSNotificationSuspensionBehaviorDeliverImmediately = 4,
};

@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter;
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(nullable NSNotificationName)name
                object:(nullable NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)suspensionBehavior;
- (void)removeObserver:(id)observer
                  name:(nullable NSNotificationName)aName
                object:(nullable NSString*)anObject;
@end

NS_ASSUME_NONNULL_END

#endif
