#include "macos_test.h"
#include "platform/macos/session/login_framework_lock.h"

namespace glidemap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LoginFrameworkLockTest : public MacosTest {};

TEST_F(LoginFrameworkLockTest, UsesTheSystemPrivateFramework) {
    EXPECT_STREQ(LoginFrameworkLock::systemsFramework,
                 "/System/Library/PrivateFrameworks/login.framework/login");
}

TEST_F(LoginFrameworkLockTest, CallsOnlyTheLockFunction) {
    LoginFrameworkLock lock(FRAMEWORKS "/liblogin.so");
    ASSERT_TRUE(lock.find());
    lock.lock([] { FAIL() << "the function never fails"; });
    lock.lock({});
    EXPECT_THAT(journal(), ElementsAre("SACLockScreenImmediate", "SACLockScreenImmediate"));
}

TEST_F(LoginFrameworkLockTest, LockIsUnavailableWithoutTheFunction) {
    EXPECT_FALSE(LoginFrameworkLock(FRAMEWORKS "/liblogin-without-lock.so").find());
}

TEST_F(LoginFrameworkLockTest, LockIsUnavailableWithoutTheFramework) {
    EXPECT_FALSE(LoginFrameworkLock("/nowhere/login").find());
    EXPECT_THAT(journal(), IsEmpty());
}

} // namespace
} // namespace glidemap
