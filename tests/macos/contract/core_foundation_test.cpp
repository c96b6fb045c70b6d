#include "contract/contract.h"

#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <type_traits>

namespace glidemap::contract {
namespace {

static_assert(std::is_same_v<CFTypeRef, const void*>);
static_assert(std::is_same_v<CFIndex, long>); // as a touch driver's list is counted
static_assert(std::is_same_v<Boolean, unsigned char>);
static_assert(std::is_same_v<CFRunLoopMode, CFStringRef>);

static_assert(std::is_same_v<decltype(kCFAllocatorDefault), const CFAllocatorRef>);
static_assert(std::is_same_v<decltype(kCFBooleanTrue), const CFBooleanRef>);
static_assert(std::is_same_v<decltype(kCFRunLoopCommonModes), const CFRunLoopMode>);
static_assert(
    std::is_same_v<decltype(kCFTypeDictionaryKeyCallBacks), const CFDictionaryKeyCallBacks>);
static_assert(
    std::is_same_v<decltype(kCFTypeDictionaryValueCallBacks), const CFDictionaryValueCallBacks>);

TEST(CoreFoundationContract, HasWhatIsUsedOfIt) {
    EXPECT_TRUE(isThere<void(CFTypeRef)>(&CFRelease));
    EXPECT_TRUE(isThere<CFIndex(CFArrayRef)>(&CFArrayGetCount));
    EXPECT_TRUE((isThere<const void*(CFArrayRef, CFIndex)>(&CFArrayGetValueAtIndex)));
    EXPECT_TRUE((isThere<CFDictionaryRef(CFAllocatorRef, const void**, const void**, CFIndex,
                                         const CFDictionaryKeyCallBacks*,
                                         const CFDictionaryValueCallBacks*)>(&CFDictionaryCreate)));
    EXPECT_TRUE((isThere<CFRunLoopSourceRef(CFAllocatorRef, CFMachPortRef, CFIndex)>(
        &CFMachPortCreateRunLoopSource)));
    EXPECT_TRUE(isThere<CFRunLoopRef()>(&CFRunLoopGetMain));
    EXPECT_TRUE(
        (isThere<void(CFRunLoopRef, CFRunLoopSourceRef, CFRunLoopMode)>(&CFRunLoopAddSource)));
    EXPECT_TRUE(
        (isThere<void(CFRunLoopRef, CFRunLoopSourceRef, CFRunLoopMode)>(&CFRunLoopRemoveSource)));
}

} // namespace
} // namespace glidemap::contract
