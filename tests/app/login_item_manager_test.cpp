#include "app/login_item_manager.h"
#include "kit/fake_login_item_service.h"
#include "kit/in_language.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using test::InLanguage;
using Status = LoginItemService::Status;

class LoginItemManagerTest : public testing::Test {
protected:
    using Attempts = std::vector<std::string>;

    test::FakeLoginItemService service;
};

TEST_F(LoginItemManagerTest, OnlyTheEnabledStateCountsAsOn) {
    struct Row {
        Status status;
        bool enabled;
    };
    for (const Row& row : {Row{Status::notRegistered, false}, Row{Status::enabled, true},
                           Row{Status::requiresApproval, false}, Row{Status::notFound, false}}) {
        service.current = row.status;
        const LoginItemManager manager(service);
        EXPECT_EQ(manager.enabled(), row.enabled) << static_cast<int>(row.status);
        EXPECT_EQ(manager.lastError(), std::nullopt);
    }
    EXPECT_EQ(service.attempts, Attempts());
}

TEST_F(LoginItemManagerTest, SwitchingCallsTheSystemAndReadsTheStateBack) {
    LoginItemManager manager(service);
    manager.setEnabled(true);
    EXPECT_TRUE(manager.enabled());
    manager.setEnabled(false);
    EXPECT_FALSE(manager.enabled());
    EXPECT_EQ(manager.lastError(), std::nullopt);
    EXPECT_EQ(service.attempts, (Attempts{"register", "unregister"}));
}

TEST_F(LoginItemManagerTest, RegistrationThatAwaitsApprovalIsOffWithoutAnError) {
    service.afterRegistering = Status::requiresApproval;
    LoginItemManager manager(service);
    manager.setEnabled(true);
    EXPECT_FALSE(manager.enabled());
    EXPECT_EQ(manager.lastError(), std::nullopt);
    EXPECT_EQ(service.attempts, Attempts{"register"});
}

TEST_F(LoginItemManagerTest, RefusalKeepsTheStateAndShowsTheSystemError) {
    service.refusal = "Permission denied";
    LoginItemManager manager(service);
    manager.setEnabled(true);
    EXPECT_FALSE(manager.enabled());
    EXPECT_EQ(manager.lastError(), "Failed to set launch at login: Permission denied");

    service.current = Status::enabled;
    manager.setEnabled(false);
    EXPECT_TRUE(manager.enabled());
    EXPECT_EQ(manager.lastError(), "Failed to set launch at login: Permission denied");
    EXPECT_EQ(service.attempts, (Attempts{"register", "unregister"}));
}

TEST_F(LoginItemManagerTest, ErrorTextIsNotTranslatedAfterALanguageChange) {
    service.refusal = "磁盘已满";
    LoginItemManager manager(service);
    {
        const InLanguage english("en");
        manager.setEnabled(true);
    }
    const InLanguage chinese("zh");
    EXPECT_EQ(manager.lastError(), "Failed to set launch at login: 磁盘已满");
    manager.setEnabled(true);
    EXPECT_EQ(manager.lastError(), "设置开机自启动失败：磁盘已满");
}

TEST_F(LoginItemManagerTest, SuccessClearsTheErrorOfAnEarlierAttempt) {
    service.refusal = "No space left on device";
    LoginItemManager manager(service);
    manager.setEnabled(true);
    service.refusal.reset();
    manager.setEnabled(true);
    EXPECT_TRUE(manager.enabled());
    EXPECT_EQ(manager.lastError(), std::nullopt);
}

TEST_F(LoginItemManagerTest, IsOnIfAnEarlierRunRegisteredTheLoginItem) {
    {
        LoginItemManager earlier(service);
        earlier.setEnabled(true);
    }
    service.attempts.clear();
    const LoginItemManager manager(service);
    EXPECT_TRUE(manager.enabled());
    EXPECT_EQ(service.attempts, Attempts());
}

TEST_F(LoginItemManagerTest, ObserversSeeTheClearedErrorAndThenTheResult) {
    service.refusal = "Permission denied";
    LoginItemManager manager(service);
    manager.setEnabled(true);
    service.refusal.reset();

    std::vector<std::string> seen;
    const auto look = [&] {
        seen.push_back(manager.lastError().value_or("no error") +
                       (manager.enabled() ? ", on" : ", off"));
    };
    const Subscription subscription = manager.changes().subscribe(look, look);
    manager.setEnabled(true);
    EXPECT_EQ(seen,
              (std::vector<std::string>{"Failed to set launch at login: Permission denied, off",
                                        "no error, off", "no error, off", "no error, on"}));
}

} // namespace
} // namespace glidemap
