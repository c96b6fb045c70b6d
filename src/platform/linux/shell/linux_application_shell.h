// Presents the program to a Linux desktop, which has no activation policies. A desktop lets a
// window come forward only if the user caused it. The proof is an activation token on Wayland, and
// the time of the user's input on X11. A program started from a terminal has no token; then the
// shell requests the activation as a task bar does.
//
// On X11 the launcher shows that the program starts until the program reports the end of its launch.
// Qt cannot report it: takeActivationToken() has already removed the startup id from the environment.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the program.
// Errors:  none; without proof a desktop may only mark the window as demanding attention.
#pragma once

#include "app/application_shell.h"

#include <functional>
#include <string>

namespace glidemap {

class LinuxApplicationShell : public ApplicationShell {
public:
    // `bringForward` makes the desktop activate our window that was used last; on Wayland, where Qt
    // cannot.
    explicit LinuxApplicationShell(std::function<void()> bringForward = {});

    void becomeAccessory() override;
    void activate(QWidget& window) override;
    void terminate() override;

    // Sets a launcher's token and startup id for the next activation. Either may be empty.
    // Changes the environment, which no other thread should read at the same time.
    void requestToken(std::string activationToken, std::string launchID);

    // Call it when the first window is visible, which may not be activated.
    void endLaunch();

private:
    const std::function<void()> askDesktop;
    std::string startupID;
};

} // namespace glidemap
