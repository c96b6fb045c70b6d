// The status bar of a Linux desktop: one that is told of items over the session's bus
// (StatusNotifierItem), or, on X11, one that gives each a window to draw in (XEmbed).
//
// Nothing here waits for the bus or for a program on it. What is not known yet counts as no bar, and
// a change follows.
//
// Thread:  the main thread, within the application object's life.
// Owner:   the program.
// Errors:  none; without a bus, and outside X11, there is no bar.
#pragma once

#include "app/status_bar.h"

#include <QObject>
#include <future>
#include <memory>

namespace glidemap {

class LinuxStatusBar : public StatusBar {
public:
    LinuxStatusBar();
    ~LinuxStatusBar() override;

    Kind kind() override;
    Observable& changes() override { return observers; }

private:
    class X11Tray;
    class BusTray;

    void connected();

    Observable observers;
    std::unique_ptr<BusTray> onBus; // null until the bus is connected
    std::unique_ptr<X11Tray> onX11; // null outside X11
    std::unique_ptr<QObject> context;
    std::future<void> connecting; // goes first, and waits for the connection
};

} // namespace glidemap
