// Port: lets a window receive the keys that the desktop reserves for itself, while the window
// records a shortcut.
//
// Thread:  the main thread.
// Owner:   the KeyPresses object of the same platform. The destructor returns the keys to the
//          desktop.
// Errors:  none; on a desktop that does not support capturing, nothing changes.
#pragma once

class QWindow;

namespace glidemap {

class DesktopKeys {
public:
    DesktopKeys() = default;
    DesktopKeys(const DesktopKeys&) = delete;
    DesktopKeys& operator=(const DesktopKeys&) = delete;
    virtual ~DesktopKeys() = default;

    // Starts capturing for this window, and stops for the previous one.
    virtual void captureFor(QWindow& window) = 0;

    // Stops capturing. Idempotent.
    virtual void giveBack() = 0;
};

} // namespace glidemap
