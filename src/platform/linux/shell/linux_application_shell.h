// The program before a Linux desktop. Activation policies mean nothing there; what counts is that a
// window may come forward because the user wanted it, which the desktop believes only with proof: a
// token on Wayland, the time of the user's act on X11. A program started from a terminal has no token; then the desktop is
// asked as a task bar asks it.
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
    // `bringForward` asks the desktop for the focus for our window that was used last; on Wayland, where the toolkit cannot.
    explicit LinuxApplicationShell(std::function<void()> bringForward = {});

    void becomeAccessory() override;
    void activate(QWidget& window) override;
    void terminate() override;

    // Sets a launcher's token and startup id for the next activation. Either may be empty.
    void prove(std::string activationToken, std::string launchID);

private:
    const std::function<void()> askDesktop;
    std::string startupID;
};

} // namespace glidemap
