#import <CoreServices/CoreServices.h>
#import <Foundation/Foundation.h>
#import <Foundation/NSAppleEventManager.h>
#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <type_traits>

namespace glidemap::test {
namespace {

static_assert(kCoreEventClass == 0x61657674);      // 'aevt'
static_assert(kAEReopenApplication == 0x72617070); // 'rapp'
static_assert(kAEQuitApplication == 0x71756974);   // 'quit'
static_assert(std::is_same_v<AEEventClass, unsigned int>);
static_assert(std::is_same_v<AEEventID, unsigned int>);

using Manager = NSAppleEventManager;
constexpr Manager* none = nullptr;
constexpr SEL noMethod = nullptr;

static_assert(std::is_convertible_v<decltype([Manager sharedAppleEventManager]), Manager*>);
static_assert(std::is_same_v<decltype([none setEventHandler:static_cast<id>(nil)
                                                andSelector:noMethod
                                              forEventClass:kCoreEventClass
                                                 andEventID:kAEReopenApplication]),
                             void>);
static_assert(std::is_same_v<decltype([none removeEventHandlerForEventClass:kCoreEventClass
                                                                 andEventID:kAEReopenApplication]),
                             void>);

TEST(AppleEventsContract, DeclaresInterfacesForReopenAndQuit) {
    const Class manager = [NSAppleEventManager class];
    EXPECT_TRUE(class_getClassMethod(manager, @selector(sharedAppleEventManager)) != nullptr);
    for (const SEL method : {
             @selector(setEventHandler:andSelector:forEventClass:andEventID:),
                 @selector(removeEventHandlerForEventClass:andEventID:)
         }) {
        EXPECT_TRUE(class_getInstanceMethod(manager, method) != nullptr) << sel_getName(method);
    }
    EXPECT_NE([NSAppleEventDescriptor class], nullptr);
}

} // namespace
} // namespace glidemap::test
