// Detects the status bar of a Linux desktop: StatusNotifierItem on the session bus, or XEmbed on
// X11, where each item draws into a window of its own.
//
// No call waits for the bus or for a program on it. An unknown state counts as no bar. When the
// state becomes known or changes, observers are notified.
//
// A panel may own both trays, and acquire the X11 one first. Qt chooses a tray once per process, so
// an X11 tray that appears counts only after `settling`. A tray on the bus counts immediately.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the program.
// Errors:  none; without a bus and outside X11, there is no status bar.
#pragma once

#include "app/status_bar.h"

#include <QObject>
#include <chrono>
#include <future>
#include <memory>

namespace glidemap {

class LinuxStatusBar : public StatusBar {
public:
    // A panel that owns both trays acquires the one on the bus within milliseconds after the X11
    // one, or later on a busy machine.
    explicit LinuxStatusBar(std::chrono::milliseconds settling = std::chrono::seconds(2));
    ~LinuxStatusBar() override;

    Kind kind() override;
    Observable& changes() override { return observers; }

private:
    class X11Tray;
    class BusTray;

    void connected();

    Observable observers;
    std::unique_ptr<BusTray> onBus; // null until the bus connection is open
    std::unique_ptr<X11Tray> onX11; // null outside X11
    std::unique_ptr<QObject> context;
    std::future<void> connecting; // destroyed first; its destructor waits for the connection
};

} // namespace glidemap
