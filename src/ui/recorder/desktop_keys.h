// Port: delivers the keys that the desktop reserves for itself to a window while it records a
// shortcut.
//
// Thread:  the main thread.
// Owner:   the key presses of the same platform. The destructor gives the keys back to the desktop.
// Errors:  none; on a desktop that does not allow it, nothing changes.
#pragma once

class QWindow;

namespace glidemap {

class DesktopKeys {
public:
    DesktopKeys() = default;
    DesktopKeys(const DesktopKeys&) = delete;
    DesktopKeys& operator=(const DesktopKeys&) = delete;
    virtual ~DesktopKeys() = default;

    // Replaces the previous window.
    virtual void captureFor(QWindow& window) = 0;

    // Idempotent.
    virtual void giveBack() = 0;
};

} // namespace glidemap
