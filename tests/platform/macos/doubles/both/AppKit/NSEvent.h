#pragma once

#include <Foundation/Foundation.h>
#include <Foundation/NSObjCRuntime.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSUInteger, NSEventType) {
    NSEventTypeKeyDown = 10,
    NSEventTypeKeyUp = 11,
};

// In C++ the options are integers, not a separate type.
typedef unsigned long long NSEventMask;
enum : NSEventMask {
    NSEventMaskKeyDown = 1ULL << NSEventTypeKeyDown,
    NSEventMaskKeyUp = 1ULL << NSEventTypeKeyUp,
};

typedef NSUInteger NSEventModifierFlags;
enum : NSEventModifierFlags {
    NSEventModifierFlagCapsLock = 1 << 16,
    NSEventModifierFlagShift = 1 << 17,
    NSEventModifierFlagControl = 1 << 18,
    NSEventModifierFlagOption = 1 << 19,
    NSEventModifierFlagCommand = 1 << 20,
    NSEventModifierFlagNumericPad = 1 << 21,
    NSEventModifierFlagHelp = 1 << 22,
    NSEventModifierFlagFunction = 1 << 23,
    NSEventModifierFlagDeviceIndependentFlagsMask = 0xffff0000UL,
};

@interface NSEvent : NSObject {
    unsigned short code;
    NSEventModifierFlags flags;
    BOOL repeats;
}
@property(readonly) NSEventModifierFlags modifierFlags;
@property(getter=isARepeat, readonly) BOOL ARepeat;
@property(readonly) unsigned short keyCode;

+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                            handler:(NSEvent* _Nullable (^)(NSEvent* event))block;
+ (void)removeMonitor:(id)eventMonitor;
@end

NS_ASSUME_NONNULL_END

#endif
