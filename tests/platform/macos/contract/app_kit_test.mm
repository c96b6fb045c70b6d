#include "bindings/key_shortcut.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <cstdint>
#include <type_traits>

namespace glidemap::test {
namespace {

static_assert(NSEventMaskKeyDown == 1U << 10);
static_assert(NSEventModifierFlagDeviceIndependentFlagsMask == 0xFFFF0000);
static_assert(NSEventModifierFlagShift == modifier::shift);
static_assert(NSEventModifierFlagControl == modifier::control);
static_assert(NSEventModifierFlagOption == modifier::option);
static_assert(NSEventModifierFlagCommand == modifier::command);
static_assert(sizeof(NSEventModifierFlags) == sizeof(std::uint64_t));

using EventHandler = NSEvent* (^)(NSEvent*);
static_assert(std::is_same_v<decltype([static_cast<NSEvent*>(nil) keyCode]), unsigned short>);
static_assert(std::is_same_v<decltype([static_cast<NSEvent*>(nil) isARepeat]), BOOL>);
static_assert(
    std::is_same_v<decltype([static_cast<NSEvent*>(nil) modifierFlags]), NSEventModifierFlags>);
static_assert(
    std::is_same_v<decltype([NSEvent
                       addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                                    handler:static_cast<EventHandler>(nullptr)]),
                   id>);
static_assert(std::is_same_v<decltype([NSEvent removeMonitor:static_cast<id>(nil)]), void>);

static_assert(NSApplicationActivationPolicyRegular == 0);
static_assert(NSApplicationActivationPolicyAccessory == 1);
static_assert(sizeof(NSApplicationActivationPolicy) == sizeof(NSInteger));
static_assert(std::is_convertible_v<decltype([NSApplication sharedApplication]), NSApplication*>);
static_assert(std::is_same_v<decltype([static_cast<NSApplication*>(nil)
                                 setActivationPolicy:NSApplicationActivationPolicyAccessory]),
                             BOOL>);
static_assert(std::is_same_v<
              decltype([static_cast<NSApplication*>(nil) activateIgnoringOtherApps:YES]), void>);

constexpr NSImage* noImage = nullptr;
constexpr NSView* noView = nullptr;
constexpr NSStatusBarButton* noButton = nullptr;
static_assert(std::is_convertible_v<decltype([NSImage imageWithSystemSymbolName:@"hand"
                                                       accessibilityDescription:@"Hand"]),
                                    NSImage*>);
static_assert(std::is_same_v<decltype([noImage setTemplate:YES]), void>);
static_assert(std::is_convertible_v<decltype([noView subviews]), NSArray<NSView*>*>);
static_assert(std::is_convertible_v<decltype([static_cast<NSWindow*>(nil) contentView]), NSView*>);
static_assert(std::is_convertible_v<decltype([static_cast<NSApplication*>(nil) windows]),
                                    NSArray<NSWindow*>*>);
static_assert(std::is_convertible_v<NSStatusBarButton*, NSView*>);
static_assert(std::is_same_v<decltype([noButton setImage:noImage]), void>);
static_assert(std::is_same_v<decltype([noButton setAppearsDisabled:YES]), void>);

bool classAnswers(Class type, SEL method) {
    return class_getClassMethod(type, method) != nullptr;
}

bool instancesAnswer(Class type, SEL method) {
    return class_getInstanceMethod(type, method) != nullptr;
}

TEST(AppKitContract, DeclaresInterfacesForTheRecorder) {
    EXPECT_TRUE(classAnswers([NSEvent class], @selector(addLocalMonitorForEventsMatchingMask:
                                                                                     handler:)));
    EXPECT_TRUE(classAnswers([NSEvent class], @selector(removeMonitor:)));
    EXPECT_TRUE(instancesAnswer([NSEvent class], @selector(keyCode)));
    EXPECT_TRUE(instancesAnswer([NSEvent class], @selector(isARepeat)));
    EXPECT_TRUE(instancesAnswer([NSEvent class], @selector(modifierFlags)));
}

TEST(AppKitContract, DeclaresInterfacesForTheApplicationShell) {
    EXPECT_TRUE(classAnswers([NSApplication class], @selector(sharedApplication)));
    EXPECT_TRUE(instancesAnswer([NSApplication class], @selector(setActivationPolicy:)));
    EXPECT_TRUE(instancesAnswer([NSApplication class], @selector(activateIgnoringOtherApps:)));
}

TEST(AppKitContract, DeclaresInterfacesForTheStatusItem) {
    EXPECT_TRUE(classAnswers([NSImage class], @selector(imageWithSystemSymbolName:
                                                         accessibilityDescription:)));
    EXPECT_TRUE(instancesAnswer([NSImage class], @selector(setTemplate:)));
    EXPECT_TRUE(instancesAnswer([NSView class], @selector(subviews)));
    EXPECT_TRUE(instancesAnswer([NSWindow class], @selector(contentView)));
    EXPECT_TRUE(instancesAnswer([NSApplication class], @selector(windows)));
    EXPECT_TRUE(instancesAnswer([NSStatusBarButton class], @selector(setImage:)));
    EXPECT_TRUE(instancesAnswer([NSStatusBarButton class], @selector(setAppearsDisabled:)));
}

} // namespace
} // namespace glidemap::test
