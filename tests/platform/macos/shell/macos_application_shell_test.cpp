#include "accessory_double.h"
#include "platform/macos/shell/macos_application_shell.h"
#include "platform/qt/session_end.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace glidemap {
namespace {

using testing::ElementsAre;

class MacosApplicationShellTest : public testing::Test {
protected:
    MacosApplicationShellTest() {
        test::asked().clear();
        QGuiApplication::setQuitOnLastWindowClosed(true); // Qt's default
    }

    ~MacosApplicationShellTest() override { QGuiApplication::setQuitOnLastWindowClosed(false); }

    MacosApplicationShell shell;
};

TEST_F(MacosApplicationShellTest, KeepsRunningAsAccessoryWithoutAWindow) {
    shell.becomeAccessory();
    EXPECT_THAT(test::asked(), ElementsAre("becomeAccessory"));
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
}

TEST_F(MacosApplicationShellTest, ShowingTheWindowActivatesTheProgram) {
    QWidget window;
    window.show();
    shell.activate(window);
    EXPECT_THAT(test::asked(), ElementsAre("comeForward"));
}

TEST_F(MacosApplicationShellTest, ActivityLastsWhileGesturesAreOn) {
    shell.setGesturesOn(false);
    EXPECT_THAT(test::asked(), testing::IsEmpty());
    shell.setGesturesOn(true);
    shell.setGesturesOn(true);
    EXPECT_THAT(test::asked(), ElementsAre("begin: Trackpad gestures are on"));
    shell.setGesturesOn(false);
    shell.setGesturesOn(false);
    shell.setGesturesOn(true);
    EXPECT_THAT(test::asked(), ElementsAre("begin: Trackpad gestures are on", "end",
                                           "begin: Trackpad gestures are on"));
}

// QCoreApplication::quit() sends the program a quit request, as the system does.
TEST_F(MacosApplicationShellTest, SystemQuitRequestEndsTheLoopAndIsReportedOnce) {
    int asked = 0;
    const SessionEnd sessionEnd([&] {
        ASSERT_EQ(++asked, 1);
        shell.terminate();
    });
    QTimer::singleShot(0, [] { QCoreApplication::quit(); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(asked, 1);
}

} // namespace
} // namespace glidemap
