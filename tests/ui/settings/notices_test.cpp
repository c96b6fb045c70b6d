#include "kit/qt_waiting.h"
#include "ui/controls/notice.h"
#include "ui/settings/notices.h"
#include "ui/settings/settings_stage.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

namespace glidemap {
namespace {

using Opened = std::vector<std::string>;

class NoticesTest : public testing::Test {
protected:
    void findNoDriver() {
        stage.devices = std::make_unique<MultitouchDeviceManager>(
            TouchDriverPlatform{.libraryPath = "/nonexistent/driver.so", .listAccess = {}});
    }

    QPushButton& button(const char* notice) const { return *stage.find<Notice>(notice)->button(); }
    void clickButton(const char* notice) const {
        QTest::mouseClick(&button(notice), Qt::LeftButton);
    }

    // Checks a pixel of the background near the notice's corner, away from its text.
    bool isTinted(const char* notice, Role role, double opacity) const {
        const Theme& theme = Theme::shared();
        return test::looksLike(stage.pixel(*stage.find(notice), {3, 3}), theme.tint(role, 1),
                               opacity, theme.color(Role::window));
    }

    mutable test::SettingsStage stage;
};

TEST_F(NoticesTest, NoNoticeIsShownWithoutAProblem) {
    stage.open();
    for (const char* name : {"updateNotice", "permissionNotice", "deviceError", "loginItemError",
                             "desktopHelperNotice"}) {
        EXPECT_FALSE(stage.isShown(name)) << name;
    }
}

TEST_F(NoticesTest, NoticesAppearInOrderBetweenTheHeaderAndTheList) {
    findNoDriver();
    stage.trust->trusted = false;
    stage.loginItems->refusal = "refused";
    stage.helper->now = DesktopHelper::State::missing;
    stage.open();
    stage.publish("2.0.0");
    stage.click("launchAtLogin");
    int y = stage.find("addBinding")->mapTo(&stage.window(), QPoint()).y();
    for (const char* name : {"updateNotice", "permissionNotice", "deviceError", "loginItemError",
                             "desktopHelperNotice", "emptyState", "footer"}) {
        ASSERT_TRUE(stage.isShown(name)) << name;
        const int next = stage.find(name)->mapTo(&stage.window(), QPoint()).y();
        EXPECT_GT(next, y) << name;
        y = next;
    }
}

TEST_F(NoticesTest, NewerVersionIsOfferedInBothLanguages) {
    stage.open();
    stage.publish("2.0.1");
    EXPECT_EQ(stage.noticeText("updateNotice"), "Version 2.0.1 is available (you have 1.0.0).");
    EXPECT_EQ(button("updateNotice").text(), "Download from Website");
    Lang::shared().setCode("zh");
    EXPECT_EQ(stage.noticeText("updateNotice"), "新版本 v2.0.1 已发布（当前 v1.0.0）。");
    EXPECT_EQ(button("updateNotice").text(), "前往官网下载");
}

TEST_F(NoticesTest, RunningVersionIsNotOfferedAsAnUpdate) {
    stage.open();
    stage.publish("1.0.0");
    EXPECT_FALSE(stage.isShown("updateNotice"));
}

TEST_F(NoticesTest, DownloadOpensTheWebsite) {
    stage.open();
    stage.publish("2.0.0");
    EXPECT_TRUE(button("updateNotice").property("prominent").toBool());
    clickButton("updateNotice");
    EXPECT_EQ(stage.workspace->opened, (Opened{"url https://glidemap.test/"}));
}

TEST_F(NoticesTest, UpdateNoticeIsBlueAndPermissionNoticeIsOrange) {
    stage.trust->trusted = false;
    stage.open();
    stage.publish("2.0.0");
    for (const auto scheme : {ColorScheme::light, ColorScheme::dark}) {
        Theme::shared().pin(scheme);
        // Palettes reach the widgets through the event loop.
        EXPECT_TRUE(test::waitFor([&] { return isTinted("updateNotice", Role::blue, 0.1); }));
        EXPECT_TRUE(
            test::waitFor([&] { return isTinted("permissionNotice", Role::orange, 0.12); }));
    }
    Theme::shared().pin(ColorScheme::light);
}

TEST_F(NoticesTest, MissingPermissionIsReportedInBothLanguages) {
    stage.trust->trusted = false;
    stage.open();
    EXPECT_EQ(stage.noticeText("permissionNotice"),
              "Accessibility permission is required to send keystrokes and intercept clicks.");
    EXPECT_EQ(button("permissionNotice").text(), "Open System Settings");
    Lang::shared().setCode("zh");
    EXPECT_EQ(stage.noticeText("permissionNotice"), "需要「辅助功能」权限才能模拟按键和拦截点击。");
    EXPECT_EQ(button("permissionNotice").text(), "打开系统设置");
}

TEST_F(NoticesTest, PermissionNoticeButtonOpensTheSystemSettings) {
    stage.trust->trusted = false;
    stage.open();
    clickButton("permissionNotice");
    EXPECT_EQ(stage.workspace->opened, (Opened{"accessibility settings"}));
}

TEST_F(NoticesTest, GrantedPermissionIsDetectedAtTheNextRecognisedGesture) {
    stage.trust->trusted = false;
    stage.open();
    stage.trust->trusted = true;
    EXPECT_TRUE(stage.isShown("permissionNotice")); // the permission was not queried again
    stage.recognise(GestureType::drawCircle);
    EXPECT_FALSE(stage.isShown("permissionNotice"));
}

TEST_F(NoticesTest, GrantedPermissionIsDetectedWhenTheWindowIsActivated) {
    stage.trust->trusted = false;
    stage.open();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(test::waitForWindowActive(&other));
    stage.trust->trusted = true;
    stage.window().activateWindow();
    ASSERT_TRUE(test::waitForWindowActive(&stage.window()));
    EXPECT_FALSE(stage.isShown("permissionNotice"));
}

TEST_F(NoticesTest, RevokedPermissionIsDetectedWhenTheWindowIsShownAgain) {
    stage.open();
    stage.window().close();
    stage.trust->trusted = false;
    stage.window().show();
    EXPECT_TRUE(stage.isShown("permissionNotice"));
}

TEST_F(NoticesTest, PermissionIsNotQueriedWhileTheWindowIsHidden) {
    stage.open();
    stage.window().close();
    const int before = stage.trust->timesAsked;
    stage.recognise(GestureType::drawCircle);
    EXPECT_EQ(stage.trust->timesAsked, before);
}

TEST_F(NoticesTest, DeviceErrorIsRedAndTheSameInBothLanguages) {
    findNoDriver();
    stage.open();
    const QString expected = QString::fromStdString("⚠️ " + stage.devices->loadError().value());
    for (const char* code : {"en", "zh"}) {
        Lang::shared().setCode(code);
        EXPECT_EQ(stage.noticeText("deviceError"), expected);
    }
    const auto* label = stage.find("deviceError")->findChild<QLabel*>();
    EXPECT_EQ(label->palette().color(QPalette::WindowText), Theme::shared().color(Role::red));
    EXPECT_EQ(stage.find<Notice>("deviceError")->button(), nullptr);
}

TEST_F(NoticesTest, LoginItemErrorIsOrangeAndDisappearsWithTheNextSuccess) {
    stage.loginItems->refusal = "Permission denied";
    stage.open();
    stage.click("launchAtLogin");
    EXPECT_EQ(stage.noticeText("loginItemError"),
              "⚠️ Failed to set launch at login: Permission denied");
    const auto* label = stage.find("loginItemError")->findChild<QLabel*>();
    EXPECT_EQ(label->palette().color(QPalette::WindowText), Theme::shared().color(Role::orange));
    stage.loginItems->refusal.reset();
    stage.click("launchAtLogin");
    EXPECT_FALSE(stage.isShown("loginItemError"));
}

TEST_F(NoticesTest, LoginItemErrorIsNotTranslatedAfterALanguageChange) {
    stage.loginItems->refusal = "Permission denied";
    stage.open();
    stage.click("launchAtLogin");
    stage.choose("zh");
    EXPECT_EQ(stage.noticeText("loginItemError"),
              "⚠️ Failed to set launch at login: Permission denied");
    stage.click("launchAtLogin");
    EXPECT_EQ(stage.noticeText("loginItemError"),
              "⚠️ 设置开机自启动失败：Permission denied");
}

TEST_F(NoticesTest, MissingHelperCanBeInstalled) {
    using State = DesktopHelper::State;
    stage.open();
    stage.helper->become(State::missing);
    EXPECT_EQ(stage.noticeText("desktopHelperNotice"),
              "On GNOME, bindings for a specific app need a small extension that reports the "
              "active app.");
    EXPECT_EQ(button("desktopHelperNotice").text(), "Install Extension");
    EXPECT_TRUE(isTinted("desktopHelperNotice", Role::purple, 0.1));
    clickButton("desktopHelperNotice");
    EXPECT_EQ(stage.helper->timesInstalled, 1);
    EXPECT_EQ(stage.noticeText("desktopHelperNotice"), "Installing the extension…");
    EXPECT_FALSE(button("desktopHelperNotice").isVisible());
    stage.helper->become(State::atNextLogin);
    EXPECT_EQ(stage.noticeText("desktopHelperNotice"),
              "The extension is installed. Log out and back in to activate it.");
    stage.helper->become(State::notNeeded);
    EXPECT_FALSE(stage.isShown("desktopHelperNotice"));
}

TEST_F(NoticesTest, FailedInstallationShowsTheErrorAndCanBeRetried) {
    stage.open();
    stage.helper->error = "no space left";
    stage.helper->become(DesktopHelper::State::failed);
    EXPECT_EQ(stage.noticeText("desktopHelperNotice"),
              "Could not install the extension: no space left");
    EXPECT_TRUE(button("desktopHelperNotice").isVisible());
}

TEST_F(NoticesTest, HelperTextsExistInChinese) {
    using State = DesktopHelper::State;
    Lang::shared().setCode("zh");
    stage.helper->error = "no space left";
    stage.open();
    const std::pair<State, const char*> rows[] = {
        {State::missing,
         "在 GNOME 中，仅对指定 App 生效的绑定需要一个小扩展来识别当前使用的 App。"},
        {State::installing, "正在安装扩展…"},
        {State::atNextLogin, "扩展已安装，注销并重新登录后生效。"},
        {State::failed, "无法安装扩展：no space left"},
    };
    for (const auto& [state, text] : rows) {
        stage.helper->become(state);
        EXPECT_EQ(stage.noticeText("desktopHelperNotice"), text);
        EXPECT_EQ(button("desktopHelperNotice").text(), "安装扩展");
    }
}

TEST(NoticesTextsTest, UnknownRunningVersionIsShownAsAQuestionMark) {
    Notices notices;
    Notices::Content content;
    content.latestVersion = "2.0.0";
    notices.display(content, Lang::shared());
    EXPECT_EQ(dynamic_cast<Notice&>(*notices.findChild<QWidget*>("updateNotice")).text(),
              "Version 2.0.0 is available (you have ?).");
}

TEST_F(NoticesTest, SystemNotesAppearAsASelectableSecondLine) {
    stage.notes = std::make_shared<test::FakeNotes>();
    stage.notes->missing = "Glidemap has no access to the touchpad.";
    stage.notes->button = "Asks for a password";
    stage.trust->trusted = false;
    stage.open();
    const Notice& notice = *stage.find<Notice>("permissionNotice");
    EXPECT_EQ(notice.secondLine(), "Glidemap has no access to the touchpad.");
    EXPECT_EQ(button("permissionNotice").toolTip(), "Asks for a password");
    EXPECT_EQ(notice.text(),
              "Accessibility permission is required to send keystrokes and intercept clicks.");
    const auto labels = notice.findChildren<QLabel*>();
    EXPECT_EQ(labels.back()->palette().color(QPalette::WindowText),
              Theme::shared().color(Role::secondary));
    EXPECT_TRUE(labels.back()->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
}

// For example, the note about missing access changes after a request for access has failed.
TEST_F(NoticesTest, SystemNotesThatChangeLaterAppearInThePermissionNotice) {
    stage.notes = std::make_shared<test::FakeNotes>();
    stage.trust->trusted = false;
    stage.open();
    const Notice& notice = *stage.find<Notice>("permissionNotice");
    EXPECT_EQ(notice.secondLine(), "");
    stage.notes->missing = "Run in a terminal: sudo grant";
    stage.notes->observers.announceDidChange();
    EXPECT_EQ(notice.secondLine(), "Run in a terminal: sudo grant");
}

TEST_F(NoticesTest, EmptySystemNotesShowNoSecondLine) {
    stage.trust->trusted = false;
    stage.open();
    EXPECT_EQ(stage.find<Notice>("permissionNotice")->secondLine(), "");
    EXPECT_EQ(button("permissionNotice").toolTip(), "");
}

} // namespace
} // namespace glidemap
