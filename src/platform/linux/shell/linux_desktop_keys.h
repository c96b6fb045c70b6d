// The desktop's own keys on X11: while they are lent the window has a grab on the keyboard, which
// passes over what window managers have bound. The server ends it with the window and with the program.
//
// Wayland's protocol for this needs the toolkit's private interface; the desktop keeps its keys there
// (docs/decisions/0070-the-keys-of-the-desktop.md).
//
// Thread:  the main thread.
// Owner:   the key presses.
// Errors:  where another program has the keyboard, nothing is lent.
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
