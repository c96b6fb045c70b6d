#import <AppKit/AppKit.h>
#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <type_traits>

namespace glidemap::test {
namespace {

constexpr NSWorkspace* noWorkspace = nullptr;
constexpr NSString* noText = nullptr;
constexpr NSURL* noURL = nullptr;

static_assert(std::is_convertible_v<decltype([NSWorkspace sharedWorkspace]), NSWorkspace*>);
static_assert(std::is_same_v<decltype([noWorkspace notificationCenter]), NSNotificationCenter*>);
static_assert(std::is_same_v<decltype([noWorkspace frontmostApplication]), NSRunningApplication*>);
static_assert(std::is_convertible_v<decltype([noWorkspace runningApplications]),
                                    NSArray<NSRunningApplication*>*>);
static_assert(std::is_same_v<decltype([noWorkspace openURL:noURL]), BOOL>);
static_assert(
    std::is_same_v<decltype([noWorkspace URLForApplicationWithBundleIdentifier:noText]), NSURL*>);
static_assert(std::is_same_v<decltype([noWorkspace accessibilityDisplayShouldReduceMotion]), BOOL>);

using Opened = void (^)(NSRunningApplication*, NSError*);
static_assert(std::is_convertible_v<decltype([NSWorkspaceOpenConfiguration configuration]),
                                    NSWorkspaceOpenConfiguration*>);
static_assert(std::is_same_v<decltype([noWorkspace
                                 openApplicationAtURL:noURL
                                        configuration:[NSWorkspaceOpenConfiguration configuration]
                                    completionHandler:static_cast<Opened>(nullptr)]),
                             void>);

constexpr NSRunningApplication* noApplication = nullptr;
static_assert(
    std::is_same_v<decltype([noApplication activationPolicy]), NSApplicationActivationPolicy>);
static_assert(std::is_same_v<decltype([noApplication isTerminated]), BOOL>);
static_assert(std::is_same_v<decltype([noApplication localizedName]), NSString*>);
static_assert(std::is_same_v<decltype([noApplication bundleIdentifier]), NSString*>);

constexpr NSAppearance* noAppearance = nullptr;
constexpr NSArray<NSAppearanceName>* noNames = nullptr;
static_assert(std::is_same_v<decltype([static_cast<NSApplication*>(nil) effectiveAppearance]),
                             NSAppearance*>);
static_assert(
    std::is_same_v<decltype([noAppearance bestMatchFromAppearancesWithNames:noNames]), NSString*>);

bool instancesAnswer(Class type, SEL method) {
    return class_getInstanceMethod(type, method) != nullptr;
}

TEST(WorkspaceContract, DeclaresInterfacesForTheWorkspace) {
    const Class workspace = [NSWorkspace class];
    EXPECT_TRUE(class_getClassMethod(workspace, @selector(sharedWorkspace)) != nullptr);
    EXPECT_TRUE(instancesAnswer(workspace, @selector(notificationCenter)));
    EXPECT_TRUE(instancesAnswer(workspace, @selector(frontmostApplication)));
    EXPECT_TRUE(instancesAnswer(workspace, @selector(runningApplications)));
    EXPECT_TRUE(instancesAnswer(workspace, @selector(openURL:)));
    EXPECT_TRUE(instancesAnswer(workspace, @selector(URLForApplicationWithBundleIdentifier:)));
    EXPECT_TRUE(instancesAnswer(workspace, @selector(openApplicationAtURL:
                                                            configuration:completionHandler:)));
    EXPECT_TRUE(class_getClassMethod([NSWorkspaceOpenConfiguration class],
                                     @selector(configuration)) != nullptr);
}

TEST(WorkspaceContract, DeclaresInterfacesForTheAppearance) {
    EXPECT_TRUE(instancesAnswer([NSApplication class], @selector(effectiveAppearance)));
    EXPECT_TRUE(
        instancesAnswer([NSAppearance class], @selector(bestMatchFromAppearancesWithNames:)));
    EXPECT_TRUE(
        instancesAnswer([NSWorkspace class], @selector(accessibilityDisplayShouldReduceMotion)));
}

TEST(WorkspaceContract, DeclaresNotificationNames) {
    for (NSString* const name :
         {NSWorkspaceDidActivateApplicationNotification,
          NSWorkspaceDidTerminateApplicationNotification,
          NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification,
          NSWorkspaceSessionDidBecomeActiveNotification,
          NSWorkspaceSessionDidResignActiveNotification, NSWorkspaceWillSleepNotification,
          NSWorkspaceDidWakeNotification, NSWorkspaceScreensDidWakeNotification,
          NSWorkspaceApplicationKey, NSAppearanceNameAqua, NSAppearanceNameDarkAqua}) {
        EXPECT_TRUE(name != nil);
    }
}

} // namespace
} // namespace glidemap::test
