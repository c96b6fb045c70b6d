#pragma once

#include <Foundation/Foundation.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular,
    NSApplicationActivationPolicyAccessory,
    NSApplicationActivationPolicyProhibited,
};

@interface NSRunningApplication : NSObject {
    NSString* name;
    NSString* identifier;
    NSApplicationActivationPolicy policy;
    BOOL hasEnded;
}
@property(readonly) NSApplicationActivationPolicy activationPolicy;
@property(getter=isTerminated, readonly) BOOL terminated;
@property(nullable, readonly, copy) NSString* localizedName;
@property(nullable, readonly, copy) NSString* bundleIdentifier;
@end

NS_ASSUME_NONNULL_END

#endif
