// Lets a window on X11 receive the keys that the desktop reserves for itself. The window grabs the
// keyboard, which bypasses the window manager's key bindings. The X server releases the grab when
// the window is destroyed or the program exits.
//
// On Wayland, the desktop keeps its keys, because the protocol that disables the desktop's key
// bindings needs a private interface of Qt (docs/decisions/0070-recording-desktop-keys.md).
//
// Thread:  the main thread.
// Owner:   the platform's KeyPresses object.
// Errors:  none; if another program has grabbed the keyboard, the window does not receive the keys.
#pragma once

#include "ui/recorder/desktop_keys.h"

#include <QPointer>
#include <QWindow>

namespace glidemap {

class LinuxDesktopKeys : public DesktopKeys {
public:
    ~LinuxDesktopKeys() override;

    void captureFor(QWindow& window) override;
    void giveBack() override;

private:
    QPointer<QWindow> captureWindow;
};

} // namespace glidemap
