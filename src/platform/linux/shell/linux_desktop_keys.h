// Lets a window receive the keys that the desktop reserves for itself.
//
// On X11, the window grabs the keyboard, which bypasses the window manager's key bindings. The X
// server releases the grab when the window is destroyed or the program exits.
//
// On Wayland, the compositor is asked not to use its own shortcuts while the window has the
// keyboard. It replies a moment later, and may first ask the user. It uses its shortcuts again when
// the window loses the keyboard or the program exits. Qt must publish its connection for this
// (docs/decisions/0070-recording-desktop-keys.md).
//
// Thread:  the main thread.
// Owner:   the platform's KeyPresses object.
// Errors:  none; if another program has grabbed the keyboard, or the compositor refuses, the window
//          does not receive the keys.
#pragma once

#include "platform/linux/shell/shortcut_inhibition.h"
#include "ui/recorder/desktop_keys.h"

#include <QMetaObject>
#include <QPointer>
#include <QWindow>
#include <memory>

namespace glidemap {

class LinuxDesktopKeys : public DesktopKeys {
public:
    ~LinuxDesktopKeys() override;

    void captureFor(QWindow& window) override;
    void giveBack() override;

    // Whether the window system has confirmed that the window receives the keys.
    bool areCaptured() const;

private:
    bool inhibitShortcuts();
    void endInhibition();

    QPointer<QWindow> captureWindow;
    std::unique_ptr<ShortcutInhibition> inhibition;
    QMetaObject::Connection dispatching;
};

} // namespace glidemap
