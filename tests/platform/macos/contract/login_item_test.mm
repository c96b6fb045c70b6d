#import <ServiceManagement/ServiceManagement.h>
#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <type_traits>

namespace glidemap::test {
namespace {

static_assert(SMAppServiceStatusNotRegistered == 0);
static_assert(SMAppServiceStatusEnabled == 1);
static_assert(SMAppServiceStatusRequiresApproval == 2);
static_assert(SMAppServiceStatusNotFound == 3);
static_assert(sizeof(SMAppServiceStatus) == sizeof(NSInteger));

constexpr SMAppService* none = nullptr;
constexpr NSError** noError = nullptr;
static_assert(std::is_convertible_v<decltype([SMAppService mainAppService]), SMAppService*>);
static_assert(std::is_same_v<decltype([none status]), SMAppServiceStatus>);
static_assert(std::is_same_v<decltype([none registerAndReturnError:noError]), BOOL>);
static_assert(std::is_same_v<decltype([none unregisterAndReturnError:noError]), BOOL>);

TEST(LoginItemContract, DeclaresInterfacesForTheLoginItem) {
    const Class service = [SMAppService class];
    EXPECT_TRUE(class_getClassMethod(service, @selector(mainAppService)) != nullptr);
    for (const SEL method : {
             @selector(status), @selector(registerAndReturnError:),
                 @selector(unregisterAndReturnError:)
         }) {
        EXPECT_TRUE(class_getInstanceMethod(service, method) != nullptr) << sel_getName(method);
    }
}

} // namespace
} // namespace glidemap::test
