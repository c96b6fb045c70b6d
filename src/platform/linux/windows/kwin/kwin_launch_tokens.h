// Gets activation tokens from KWin over a Wayland connection of its own.
//
// KWin gives a valid token to the program with the active window, and to programs whose desktop
// entry requests KWin's window management. It offers the window management only to the latter.
// Without that offer, no token is requested, because KWin refuses to activate a window that shows
// an invalid one.
//
// Thread:  the desktop thread. No function waits for KWin.
// Owner:   the KWin backend, while KWin is on the bus.
// Errors:  the token is empty, as described for XdgActivation.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"

#include <functional>
#include <memory>
#include <string>

namespace glidemap {

class WlrConnection;
class XdgActivation;

class KWinLaunchTokens {
public:
    // Connects to the compositor that the environment names.
    explicit KWinLaunchTokens(DesktopThread& desktop);
    KWinLaunchTokens(const KWinLaunchTokens&) = delete;
    KWinLaunchTokens& operator=(const KWinLaunchTokens&) = delete;

    // Discards pending requests without calling their receivers.
    ~KWinLaunchTokens();

    // Calls the receiver once, immediately or later.
    void requestToken(const std::string& application,
                      std::function<void(const std::string& token)> receiver);

    // Completes all pending requests with an empty token.
    void abandonRequests();

private:
    void receiveEvents();

    DesktopThread& thread;
    std::unique_ptr<WlrConnection> connection; // null once it is lost
    std::unique_ptr<XdgActivation> activation;
    DesktopThread::Watch watch;
};

} // namespace glidemap
