#include "contract/contract.h"

#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <type_traits>

namespace glidemap::test {
namespace {

static_assert(std::is_same_v<CFTypeRef, const void*>);
static_assert(std::is_same_v<CFIndex, long>); // the index type in a touch driver's list
static_assert(std::is_same_v<Boolean, unsigned char>);
static_assert(std::is_same_v<CFRunLoopMode, CFStringRef>);

static_assert(std::is_same_v<decltype(kCFAllocatorDefault), const CFAllocatorRef>);
static_assert(std::is_same_v<decltype(kCFBooleanTrue), const CFBooleanRef>);
static_assert(std::is_same_v<decltype(kCFBooleanFalse), const CFBooleanRef>);
static_assert(std::is_same_v<decltype(kCFRunLoopCommonModes), const CFRunLoopMode>);
static_assert(
    std::is_same_v<decltype(kCFTypeDictionaryKeyCallBacks), const CFDictionaryKeyCallBacks>);
static_assert(
    std::is_same_v<decltype(kCFTypeDictionaryValueCallBacks), const CFDictionaryValueCallBacks>);

TEST(CoreFoundationContract, DeclaresInterfacesForCollectionsAndRunLoops) {
    EXPECT_TRUE(isThere<void(CFTypeRef)>(&CFRelease));
    EXPECT_TRUE(isThere<CFIndex(CFArrayRef)>(&CFArrayGetCount));
    EXPECT_TRUE((isThere<const void*(CFArrayRef, CFIndex)>(&CFArrayGetValueAtIndex)));
    EXPECT_TRUE((isThere<CFDictionaryRef(CFAllocatorRef, const void**, const void**, CFIndex,
                                         const CFDictionaryKeyCallBacks*,
                                         const CFDictionaryValueCallBacks*)>(&CFDictionaryCreate)));
    EXPECT_TRUE((isThere<const void*(CFDictionaryRef, const void*)>(&CFDictionaryGetValue)));
    EXPECT_TRUE((isThere<CFRunLoopSourceRef(CFAllocatorRef, CFMachPortRef, CFIndex)>(
        &CFMachPortCreateRunLoopSource)));
    EXPECT_TRUE(isThere<void(CFMachPortRef)>(&CFMachPortInvalidate));
    EXPECT_TRUE(isThere<CFRunLoopRef()>(&CFRunLoopGetMain));
    EXPECT_TRUE(
        (isThere<void(CFRunLoopRef, CFRunLoopSourceRef, CFRunLoopMode)>(&CFRunLoopAddSource)));
    EXPECT_TRUE(
        (isThere<void(CFRunLoopRef, CFRunLoopSourceRef, CFRunLoopMode)>(&CFRunLoopRemoveSource)));
}

// The user's settings are texts or booleans.
static_assert(std::is_same_v<CFPropertyListRef, CFTypeRef>);
static_assert(std::is_same_v<UInt8, unsigned char>);
static_assert(kCFStringEncodingUTF8 == 0x08000100);
static_assert(std::is_same_v<decltype(kCFPreferencesCurrentApplication), const CFStringRef>);

TEST(CoreFoundationContract, DeclaresTypesForTheSettings) {
    EXPECT_TRUE(isThere<CFTypeID(CFTypeRef)>(&CFGetTypeID));
    EXPECT_TRUE(isThere<CFTypeID()>(&CFStringGetTypeID));
    EXPECT_TRUE(isThere<CFTypeID()>(&CFBooleanGetTypeID));
    EXPECT_TRUE(isThere<Boolean(CFBooleanRef)>(&CFBooleanGetValue));
    EXPECT_TRUE(
        (isThere<CFStringRef(CFAllocatorRef, const UInt8*, CFIndex, CFStringEncoding, Boolean)>(
            &CFStringCreateWithBytes)));
    EXPECT_TRUE(isThere<CFIndex(CFStringRef)>(&CFStringGetLength));
    EXPECT_TRUE((isThere<CFIndex(CFIndex, CFStringEncoding)>(&CFStringGetMaximumSizeForEncoding)));
    EXPECT_TRUE(
        (isThere<Boolean(CFStringRef, char*, CFIndex, CFStringEncoding)>(&CFStringGetCString)));
}

TEST(CoreFoundationContract, DeclaresInterfacesForStoringSettings) {
    EXPECT_TRUE((isThere<CFPropertyListRef(CFStringRef, CFStringRef)>(&CFPreferencesCopyAppValue)));
    EXPECT_TRUE(
        (isThere<void(CFStringRef, CFPropertyListRef, CFStringRef)>(&CFPreferencesSetAppValue)));
    EXPECT_TRUE(isThere<Boolean(CFStringRef)>(&CFPreferencesAppSynchronize));
}

} // namespace
} // namespace glidemap::test
