#include "platform/linux/shell/linux_application_shell.h"

#include "platform/linux/shell/x11_activation.h"
#include "platform/linux/shell/x11_connection.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <utility>

namespace glidemap {

namespace {

// Returns whether the window is already visible. The desktop itself decides whether a new window
// gets the focus.
bool isShown(const QWidget& window) {
    const QWindow* const handle = window.windowHandle();
    return handle != nullptr && handle->isExposed();
}

// Returns null if no window is visible.
QWindow* visibleWindow() {
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [](const QWindow* window) { return window->isExposed(); });
    return found != windows.end() ? *found : nullptr;
}

} // namespace

LinuxApplicationShell::LinuxApplicationShell(std::function<void()> bringForward)
    : askDesktop(std::move(bringForward)) {}

void LinuxApplicationShell::becomeAccessory() {
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

void LinuxApplicationShell::activate(QWidget& window) {
    window.raise();
    window.activateWindow();
    if (const auto connection = x11Connection()) {
        activateOnX11(*connection, static_cast<std::uint32_t>(window.winId()),
                      std::exchange(startupID, {}));
    } else if (askDesktop && isShown(window)) {
        // The desktop is asked even if the window is active for Qt, because Qt is notified late
        // when another window gets the focus.
        askDesktop();
    }
}

void LinuxApplicationShell::terminate() {
    // QCoreApplication::quit() would ask each window for permission, and a window may refuse.
    QCoreApplication::exit(0);
}

void LinuxApplicationShell::requestToken(const std::string& activationToken, std::string launchID) {
    startupID = std::move(launchID);
    if (!activationToken.empty()) {
        // At the next activation, Qt reads the token from the environment and removes it.
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(activationToken));
    }
}

void LinuxApplicationShell::endLaunch() {
    const auto connection = x11Connection();
    QWindow* const window = visibleWindow();
    if (connection && window != nullptr && !startupID.empty()) {
        endLaunchOnX11(*connection, static_cast<std::uint32_t>(window->winId()),
                       std::exchange(startupID, {}));
    }
}

} // namespace glidemap
