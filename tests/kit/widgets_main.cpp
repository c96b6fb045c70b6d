// Runs tests of widgets in the toolkit's default style.
#include <gtest/gtest.h>

#include <QApplication>

// Uses the offscreen platform, unless the environment selects a display.
int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&count, arguments);
    const QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false); // a test may close its windows and continue
    return RUN_ALL_TESTS();
}
