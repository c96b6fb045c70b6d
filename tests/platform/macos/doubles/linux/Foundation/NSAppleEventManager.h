#pragma once

#include <CoreServices/CoreServices.h>
#include <Foundation/Foundation.h>
#include <Foundation/NSObjCRuntime.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

@interface NSAppleEventDescriptor : NSObject
@end

@interface NSAppleEventManager : NSObject
+ (NSAppleEventManager*)sharedAppleEventManager;
- (void)setEventHandler:(id)handler
            andSelector:(SEL)handleEventSelector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID;
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
@end

NS_ASSUME_NONNULL_END

#endif
