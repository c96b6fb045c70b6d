#pragma once

#include <AppKit/NSApplication.h>
#include <Foundation/Foundation.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSAppearanceName;
extern NSAppearanceName const NSAppearanceNameAqua;
extern NSAppearanceName const NSAppearanceNameDarkAqua;

@interface NSAppearance : NSObject
- (nullable NSAppearanceName)bestMatchFromAppearancesWithNames:
    (NSArray<NSAppearanceName>*)appearances;
@end

@interface NSApplication (NSAppearanceCustomization)
@property(readonly, strong) NSAppearance* effectiveAppearance;
@end

NS_ASSUME_NONNULL_END

#endif
