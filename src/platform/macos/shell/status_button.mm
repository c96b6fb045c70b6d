#include "platform/macos/shell/status_button.h"

#include "platform/macos/autorelease_pool.h"

#import <AppKit/AppKit.h>

namespace glidemap {

namespace {

NSString* textFrom(const char* text) {
    return [NSString stringWithUTF8String:text];
}

NSStatusBarButton* buttonIn(NSView* view) {
    if ([view isKindOfClass:[NSStatusBarButton class]]) {
        return static_cast<NSStatusBarButton*>(view);
    }
    for (NSView* child in [view subviews]) {
        if (NSStatusBarButton* const found = buttonIn(child)) {
            return found;
        }
    }
    return nil;
}

// Returns the button of the program's only status item. A status item has its own window.
NSStatusBarButton* statusButton() {
    for (NSWindow* window in [[NSApplication sharedApplication] windows]) {
        if (NSStatusBarButton* const found = buttonIn([window contentView])) {
            return found;
        }
    }
    return nil;
}

bool showSymbol(const char* symbol, const char* description, bool isDimmed) {
    NSImage* const image = [NSImage imageWithSystemSymbolName:textFrom(symbol)
                                     accessibilityDescription:textFrom(description)];
    NSStatusBarButton* const button = image != nil ? statusButton() : nil;
    if (button == nil) {
        return false;
    }
    [image setTemplate:YES];
    [button setImage:image];
    [button setAppearsDisabled:isDimmed ? YES : NO];
    return true;
}

} // namespace

bool showSystemSymbol(const char* symbol, const char* description, bool isDimmed) {
    bool isShown = false;
    withinAutoreleasePool([&] { isShown = showSymbol(symbol, description, isDimmed); });
    return isShown;
}

} // namespace glidemap
