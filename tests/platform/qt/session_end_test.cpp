#include "platform/qt/session_end.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QGuiApplication>
#include <QWindow>

namespace glidemap {
namespace {

class Offscreen {
public:
    Offscreen() : application((qputenv("QT_QPA_PLATFORM", "offscreen"), count), arguments) {}

private:
    int count = 1;
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    QGuiApplication application;
};

TEST(SessionEndTest, ReportsAQuitRequestOnceAndClosesNoWindow) {
    const Offscreen offscreen;
    int asked = 0;
    const SessionEnd sessionEnd([&] { ++asked; });
    QWindow window;
    window.show();
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qGuiApp, &quit);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(window.isVisible());
}

TEST(SessionEndTest, DestructionRestoresTheQuitHandlingOfQt) {
    const Offscreen offscreen;
    int asked = 0;
    {
        const SessionEnd sessionEnd([&] { ++asked; });
    }
    QWindow window;
    window.show();
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qGuiApp, &quit);
    EXPECT_EQ(asked, 0);
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace glidemap
