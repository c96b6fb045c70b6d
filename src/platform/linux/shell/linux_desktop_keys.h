// Lets a window on X11 receive the desktop's own keys: the window grabs the keyboard, which
// bypasses the window manager's key bindings. The X server releases the grab when the window is
// destroyed or the program exits.
//
// Wayland's protocol for this needs a private interface of Qt, so the desktop keeps its keys there
// (docs/decisions/0070-the-keys-of-the-desktop.md).
//
// Thread:  the main thread.
// Owner:   the platform's KeyPresses object.
// Errors:  none; if another program has grabbed the keyboard, the window does not receive them.
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
