#include "platform/macos/shell/macos_application_shell.h"

#include "platform/macos/shell/accessory.h"

#include <QGuiApplication>
#include <QWidget>

namespace glidemap {

// Also keeps the program running after its last window closes.
void MacosApplicationShell::becomeAccessory() {
    QGuiApplication::setQuitOnLastWindowClosed(false);
    glidemap::becomeAccessory();
}

void MacosApplicationShell::activate(QWidget& window) {
    comeForward();
    window.raise();
    window.activateWindow();
}

void MacosApplicationShell::setGesturesOn(bool areOn) {
    if (!areOn) {
        activity.reset();
    } else if (!activity) {
        activity.emplace("Trackpad gestures are on");
    }
}

void MacosApplicationShell::terminate() {
    // QCoreApplication::quit() would make the system ask whether the program may quit, which calls
    // this function again.
    QCoreApplication::exit(0);
}

} // namespace glidemap
