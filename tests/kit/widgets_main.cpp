// Runs tests of widgets as the toolkit draws them.
#include <gtest/gtest.h>

#include <QApplication>

// Without a display, unless the person who runs it wants to see.
int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&count, arguments);
    const QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false); // a test may close its windows and go on
    return RUN_ALL_TESTS();
}
