#pragma once

#include <AppKit/NSApplication.h>
#include <Foundation/Foundation.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

@interface NSImage : NSObject {
    NSString* symbol;
    NSString* description;
    BOOL isTemplate;
}
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description;
- (BOOL)isTemplate;
- (void)setTemplate:(BOOL)isTemplate;
@end

@interface NSView : NSObject {
    NSArray* children;
}
@property(readonly, copy) NSArray<__kindof NSView*>* subviews;
@end

@interface NSWindow : NSObject {
    NSView* content;
}
@property(nullable, readonly, strong) __kindof NSView* contentView;
@end

@interface NSStatusBarButton : NSView
- (void)setImage:(nullable NSImage*)image;
- (void)setAppearsDisabled:(BOOL)appearsDisabled;
@end

@interface NSApplication (DoubleOfWindows)
@property(readonly, copy) NSArray<NSWindow*>* windows;
@end

NS_ASSUME_NONNULL_END

#endif
