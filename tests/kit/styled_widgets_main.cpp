// Runs tests of widgets in the program's own style: light, and with animations.
#include "ui/theme/theme.h"

#include <gtest/gtest.h>

#include <QApplication>

// Uses the offscreen platform, unless the environment selects a display.
int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&count, arguments);
    QApplication application(count, arguments);
    glidemap::Theme::shared().applyTo(application);
    glidemap::Theme::shared().pin(glidemap::ColorScheme::light);
    glidemap::Theme::shared().pinReducedMotion(false);
    return RUN_ALL_TESTS();
}
