// Lends the desktop's own keys to a window on X11: meanwhile the window grabs the keyboard, which
// bypasses the window manager's key bindings. The server ends the grab with the window and with the
// program.
//
// Wayland's protocol for this needs a private interface of Qt, so the desktop keeps its keys there
// (docs/decisions/0070-the-keys-of-the-desktop.md).
//
// Thread:  the main thread.
// Owner:   the key presses.
// Errors:  none; if another program has grabbed the keyboard, nothing is lent.
#pragma once

#include "ui/recorder/desktop_keys.h"

#include <QPointer>
#include <QWindow>

namespace glidemap {

class LinuxDesktopKeys : public DesktopKeys {
public:
    ~LinuxDesktopKeys() override;

    void lendTo(QWindow& window) override;
    void giveBack() override;

private:
    QPointer<QWindow> borrower;
};

} // namespace glidemap
