#include "bindings/key_shortcut.h"
#include "contract/contract.h"

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

namespace glidemap::test {
namespace {

static_assert(std::is_same_v<CGKeyCode, std::uint16_t>);
static_assert(std::is_same_v<CGEventFlags, std::uint64_t>);
static_assert(std::is_same_v<CGEventMask, std::uint64_t>);
static_assert(sizeof(CGEventSourceStateID) == 4 && sizeof(CGEventType) == 4);
static_assert(sizeof(CGEventField) == 4 && sizeof(CGEventTapLocation) == 4);
static_assert(sizeof(CGEventTapPlacement) == 4 && sizeof(CGEventTapOptions) == 4);

// A shortcut stores the event's flags unchanged.
static_assert(kCGEventFlagMaskShift == modifier::shift);
static_assert(kCGEventFlagMaskControl == modifier::control);
static_assert(kCGEventFlagMaskAlternate == modifier::option);
static_assert(kCGEventFlagMaskCommand == modifier::command);

// Typing: the events use the hardware's state, and enter the system where the keyboard's events do.
static_assert(kCGEventSourceStateHIDSystemState == 1);
static_assert(kCGHIDEventTap == 0);

// Clicks: an active event tap, before all other taps of the session.
static_assert(kCGSessionEventTap == 1);
static_assert(kCGHeadInsertEventTap == 0);
static_assert(kCGEventTapOptionDefault == 0);
static_assert((CGEventMaskBit(kCGEventLeftMouseDown) | CGEventMaskBit(kCGEventLeftMouseUp) |
               CGEventMaskBit(kCGEventRightMouseDown) | CGEventMaskBit(kCGEventRightMouseUp)) ==
              0x1E);
static_assert(kCGEventTapDisabledByTimeout == 0xFFFFFFFE);
static_assert(kCGEventTapDisabledByUserInput == 0xFFFFFFFF);
static_assert(kCGMouseEventButtonNumber == 3);
static_assert(std::is_same_v<CGEventTapCallBack,
                             CGEventRef (*)(CGEventTapProxy, CGEventType, CGEventRef, void*)>);

static_assert(std::is_convertible_v<decltype(kAXTrustedCheckOptionPrompt), CFStringRef>);

TEST(ApplicationServicesContract, DeclaresInterfacesForTyping) {
    EXPECT_TRUE(isThere<CGEventSourceRef(CGEventSourceStateID)>(&CGEventSourceCreate));
    EXPECT_TRUE(
        (isThere<CGEventRef(CGEventSourceRef, CGKeyCode, bool)>(&CGEventCreateKeyboardEvent)));
    EXPECT_TRUE((isThere<void(CGEventRef, CGEventFlags)>(&CGEventSetFlags)));
    EXPECT_TRUE((isThere<void(CGEventTapLocation, CGEventRef)>(&CGEventPost)));
}

TEST(ApplicationServicesContract, DeclaresInterfacesForClicks) {
    EXPECT_TRUE(
        (isThere<CFMachPortRef(CGEventTapLocation, CGEventTapPlacement, CGEventTapOptions,
                               CGEventMask, CGEventTapCallBack, void*)>(&CGEventTapCreate)));
    EXPECT_TRUE((isThere<void(CFMachPortRef, bool)>(&CGEventTapEnable)));
    EXPECT_TRUE((isThere<std::int64_t(CGEventRef, CGEventField)>(&CGEventGetIntegerValueField)));
}

TEST(ApplicationServicesContract, DeclaresInterfacesForTheSession) {
    EXPECT_TRUE(isThere<CFDictionaryRef()>(&CGSessionCopyCurrentDictionary));
}

TEST(ApplicationServicesContract, DeclaresInterfacesForPermission) {
    EXPECT_TRUE(isThere<Boolean()>(&AXIsProcessTrusted));
    EXPECT_TRUE(isThere<Boolean(CFDictionaryRef)>(&AXIsProcessTrustedWithOptions));
}

} // namespace
} // namespace glidemap::test
