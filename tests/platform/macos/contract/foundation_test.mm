#import <Foundation/Foundation.h>
#import <Foundation/NSDistributedNotificationCenter.h>
#import <Foundation/NSProcessInfo.h>
#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <type_traits>

namespace glidemap::test {
namespace {

constexpr NSString* noText = nullptr;

static_assert(NSUTF8StringEncoding == 4);
static_assert(std::is_same_v<decltype([noText UTF8String]), const char*>);
static_assert(std::is_convertible_v<decltype([[NSString alloc] initWithBytes:nullptr
                                                                      length:0
                                                                    encoding:NSUTF8StringEncoding]),
                                    NSString*>);
static_assert(std::is_same_v<decltype([noText isEqualToString:noText]), BOOL>);

constexpr NSArray<NSURL*>* noURLs = nullptr;
static_assert(std::is_convertible_v<decltype([noURLs firstObject]), NSURL*>);
static_assert(std::is_convertible_v<decltype([NSArray arrayWithObjects:@"one", @"two", nil]),
                                    NSArray<NSString*>*>);
static_assert(
    std::is_convertible_v<decltype([static_cast<NSDictionary*>(nil) objectForKey:noText]), id>);

constexpr NSURL* noURL = nullptr;
static_assert(std::is_convertible_v<decltype([NSURL URLWithString:noText]), NSURL*>);
static_assert(
    std::is_convertible_v<decltype([NSURL fileURLWithPath:noText isDirectory:YES]), NSURL*>);
static_assert(std::is_same_v<decltype([noURL absoluteString]), NSString*>);
static_assert(std::is_same_v<decltype([noURL fileSystemRepresentation]), const char*>);

static_assert(
    std::is_same_v<decltype([static_cast<NSError*>(nil) localizedDescription]), NSString*>);

static_assert(std::is_convertible_v<decltype([NSBundle mainBundle]), NSBundle*>);
static_assert(
    std::is_convertible_v<decltype([static_cast<NSBundle*>(nil) infoDictionary]), NSDictionary*>);

static_assert(std::is_same_v<decltype([static_cast<NSBundle*>(nil) executablePath]), NSString*>);

static_assert(NSApplicationSupportDirectory == 14);
static_assert(NSUserDomainMask == 1);
static_assert(std::is_convertible_v<decltype([NSFileManager defaultManager]), NSFileManager*>);
static_assert(std::is_convertible_v<decltype([static_cast<NSFileManager*>(nil)
                                        URLsForDirectory:NSApplicationSupportDirectory
                                               inDomains:NSUserDomainMask]),
                                    NSArray<NSURL*>*>);

constexpr NSObject* noObject = nullptr;
using Notify = void (^)(NSNotification*);
constexpr NSNotificationCenter* noCenter = nullptr;
static_assert(std::is_same_v<decltype([noCenter addObserverForName:noText
                                                            object:nil
                                                             queue:nil
                                                        usingBlock:static_cast<Notify>(nullptr)]),
                             id<NSObject>>);
static_assert(std::is_same_v<decltype([noCenter removeObserver:noObject]), void>);
static_assert(
    std::is_convertible_v<decltype([static_cast<NSNotification*>(nil) userInfo]), NSDictionary*>);

static_assert(NSNotificationSuspensionBehaviorDeliverImmediately == 4);
constexpr NSDistributedNotificationCenter* noDistributedCenter = nullptr;
static_assert(std::is_convertible_v<decltype([NSDistributedNotificationCenter defaultCenter]),
                                    NSDistributedNotificationCenter*>);
static_assert(
    std::is_same_v<decltype([noDistributedCenter
                              addObserver:noObject
                                 selector:static_cast<SEL>(nullptr)
                                     name:noText
                                   object:nil
                       suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately]),
                   void>);
static_assert(std::is_same_v<decltype([noDistributedCenter removeObserver:noObject
                                                                     name:noText
                                                                   object:nil]),
                             void>);

static_assert(sizeof(NSKeyValueObservingOptions) == sizeof(NSUInteger));
static_assert(
    std::is_same_v<decltype([noObject addObserver:noObject
                                       forKeyPath:noText
                                          options:static_cast<NSKeyValueObservingOptions>(0)
                                          context:nullptr]),
                   void>);
static_assert(std::is_same_v<decltype([noObject removeObserver:noObject
                                                    forKeyPath:noText
                                                       context:nullptr]),
                             void>);
static_assert(std::is_same_v<decltype([noObject observeValueForKeyPath:noText
                                                              ofObject:nil
                                                                change:nil
                                                               context:nullptr]),
                             void>);

static_assert(NSActivityUserInitiatedAllowingIdleSystemSleep == 0x00EFFFFF);
constexpr NSProcessInfo* noProcess = nullptr;
static_assert(std::is_convertible_v<decltype([NSProcessInfo processInfo]), NSProcessInfo*>);
static_assert(std::is_same_v<decltype([noProcess beginActivityWithOptions:
                                                     NSActivityUserInitiatedAllowingIdleSystemSleep
                                                                   reason:noText]),
                             id<NSObject>>);
static_assert(std::is_same_v<decltype([noProcess endActivity:noObject]), void>);

bool classAnswers(Class type, SEL method) {
    return class_getClassMethod(type, method) != nullptr;
}

bool instancesAnswer(Class type, SEL method) {
    return class_getInstanceMethod(type, method) != nullptr;
}

TEST(FoundationContract, DeclaresInterfacesForTheBundle) {
    EXPECT_TRUE(classAnswers([NSBundle class], @selector(mainBundle)));
    EXPECT_TRUE(instancesAnswer([NSBundle class], @selector(infoDictionary)));
    EXPECT_TRUE(instancesAnswer([NSBundle class], @selector(executablePath)));
    EXPECT_TRUE(classAnswers([NSFileManager class], @selector(defaultManager)));
    EXPECT_TRUE(instancesAnswer([NSFileManager class], @selector(URLsForDirectory:inDomains:)));
}

TEST(FoundationContract, DeclaresInterfacesForStringsCollectionsAndURLs) {
    EXPECT_TRUE(instancesAnswer([NSString class], @selector(initWithBytes:length:encoding:)));
    EXPECT_TRUE(instancesAnswer([NSString class], @selector(isEqualToString:)));
    EXPECT_TRUE(instancesAnswer([NSString class], @selector(UTF8String)));
    EXPECT_TRUE(classAnswers([NSArray class], @selector(arrayWithObjects:)));
    EXPECT_TRUE(instancesAnswer([NSArray class], @selector(firstObject)));
    EXPECT_TRUE(instancesAnswer([NSDictionary class], @selector(objectForKey:)));
    EXPECT_TRUE(classAnswers([NSURL class], @selector(URLWithString:)));
    EXPECT_TRUE(classAnswers([NSURL class], @selector(fileURLWithPath:isDirectory:)));
    EXPECT_TRUE(instancesAnswer([NSURL class], @selector(absoluteString)));
    EXPECT_TRUE(instancesAnswer([NSURL class], @selector(fileSystemRepresentation)));
    EXPECT_TRUE(instancesAnswer([NSError class], @selector(localizedDescription)));
}

TEST(FoundationContract, DeclaresInterfacesForActivities) {
    EXPECT_TRUE(classAnswers([NSProcessInfo class], @selector(processInfo)));
    EXPECT_TRUE(instancesAnswer([NSProcessInfo class], @selector(beginActivityWithOptions:
                                                                                   reason:)));
    EXPECT_TRUE(instancesAnswer([NSProcessInfo class], @selector(endActivity:)));
}

TEST(FoundationContract, DeclaresInterfacesForNotificationsAndObservation) {
    EXPECT_TRUE(instancesAnswer([NSNotificationCenter class],
                                @selector(addObserverForName:object:queue:usingBlock:)));
    EXPECT_TRUE(instancesAnswer([NSNotificationCenter class], @selector(removeObserver:)));
    EXPECT_TRUE(instancesAnswer([NSNotification class], @selector(userInfo)));
    const Class distributed = [NSDistributedNotificationCenter class];
    EXPECT_TRUE(classAnswers(distributed, @selector(defaultCenter)));
    EXPECT_TRUE(instancesAnswer(distributed,
                                @selector(addObserver:selector:name:object:suspensionBehavior:)));
    EXPECT_TRUE(instancesAnswer(distributed, @selector(removeObserver:name:object:)));
    for (const SEL method : {
             @selector(addObserver:forKeyPath:options:context:),
                 @selector(removeObserver:forKeyPath:context:),
                 @selector(observeValueForKeyPath:ofObject:change:context:)
         }) {
        EXPECT_TRUE(instancesAnswer([NSObject class], method)) << sel_getName(method);
    }
}

} // namespace
} // namespace glidemap::test
