// Presents the program to a Linux desktop, which has no activation policies. A desktop lets a
// window come forward only if the user caused it. The proof is an activation token on Wayland, and
// the time of the user's input on X11.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the program.
// Errors:  none; without proof a desktop may only mark the window as demanding attention.
#pragma once

#include "app/application_shell.h"

#include <string>

namespace glidemap {

class LinuxApplicationShell : public ApplicationShell {
public:
    void becomeAccessory() override;
    void activate(QWidget& window) override;
    void terminate() override;

    // Sets a launcher's token and startup id for the next activation. Either may be empty.
    void prove(std::string activationToken, std::string launchID);

private:
    std::string startupID;
};

} // namespace glidemap
