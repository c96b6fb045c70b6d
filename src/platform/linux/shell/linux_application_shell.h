// Integrates the program with a Linux desktop. A desktop raises a window only if the user requested
// it. To prove this, the program passes an activation token on Wayland, and the time of the user's
// input on X11. A program started from a terminal has no token. In this case, `bringForward` asks
// the desktop to activate the window, as a task bar does.
//
// On X11, the launcher shows a busy indicator until the program reports that it has started. Qt
// cannot report this, because takeActivationToken() has already removed the startup id from the
// environment.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the program.
// Errors:  none; without a token, a desktop may only mark the window as demanding attention.
#pragma once

#include "app/application_shell.h"

#include <functional>
#include <string>

namespace glidemap {

class LinuxApplicationShell : public ApplicationShell {
public:
    // `bringForward` must make the desktop activate our most recently used window. It is called on
    // Wayland whenever a window that is already visible is activated, because Qt's own activation
    // may have no effect.
    explicit LinuxApplicationShell(std::function<void()> bringForward = {});

    void becomeAccessory() override;
    void activate(QWidget& window) override;
    void terminate() override;

    // Sets the token and the startup id of a launcher for the next activation. Either may be empty.
    // Changes the environment, so no other thread may read it at the same time.
    void requestToken(const std::string& activationToken, std::string launchID);

    // Completes the launcher's startup notification if no activation has completed it. Must be
    // called when the first window is visible.
    void endLaunch();

private:
    const std::function<void()> askDesktop;
    std::string startupID;
};

} // namespace glidemap
