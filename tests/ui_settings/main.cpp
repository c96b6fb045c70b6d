#include "ui/theme/theme.h"

#include <gtest/gtest.h>

#include <QApplication>

// Without a display, unless the person who runs it wants to see.
int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("QT_SCALE_FACTOR", "1"); // the pixels that tests look at are points
    testing::InitGoogleTest(&count, arguments);
    const QApplication application(count, arguments);
    glidemap::Theme::shared().applyTo(*qApp);
    glidemap::Theme::shared().pin(glidemap::ColorScheme::light);
    return RUN_ALL_TESTS();
}
