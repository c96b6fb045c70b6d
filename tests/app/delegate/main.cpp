#include <gtest/gtest.h>

#include <QApplication>

// Without a display, unless the person who runs it wants to see.
int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&count, arguments);
    const QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
