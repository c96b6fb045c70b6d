// Runs tests of widgets as the program draws them: in its style, in light, and with its motion.
#include "ui/theme/theme.h"

#include <gtest/gtest.h>

#include <QApplication>

// Without a display, unless the person who runs it wants to see.
int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&count, arguments);
    QApplication application(count, arguments);
    glidemap::Theme::shared().applyTo(application);
    glidemap::Theme::shared().pin(glidemap::ColorScheme::light);
    glidemap::Theme::shared().pinReducedMotion(false);
    glidemap::Theme::shared().pinReducedMotion(false);
    return RUN_ALL_TESTS();
}
