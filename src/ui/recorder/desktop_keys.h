// Port: the keys that the desktop keeps for itself, lent to a window while a shortcut is recorded.
//
// Thread:  the main thread.
// Owner:   the key presses of the same home. Destroyed, it has given the keys back.
// Errors:  a desktop that lends no keys changes nothing.
#pragma once

class QWindow;

namespace glidemap {

class DesktopKeys {
public:
    DesktopKeys() = default;
    DesktopKeys(const DesktopKeys&) = delete;
    DesktopKeys& operator=(const DesktopKeys&) = delete;
    virtual ~DesktopKeys() = default;

    // In place of any other window.
    virtual void lendTo(QWindow& window) = 0;

    // Idempotent.
    virtual void giveBack() = 0;
};

} // namespace glidemap
