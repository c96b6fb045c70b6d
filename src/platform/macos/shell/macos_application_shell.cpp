#include "platform/macos/shell/macos_application_shell.h"

#include "platform/macos/shell/accessory.h"

#include <QCoreApplication>
#include <QWidget>

namespace glidemap {

void MacosApplicationShell::becomeAccessory() {
    glidemap::becomeAccessory();
}

void MacosApplicationShell::activate(QWidget& window) {
    comeForward();
    window.raise();
    window.activateWindow();
}

void MacosApplicationShell::terminate() {
    QCoreApplication::quit();
}

} // namespace glidemap
