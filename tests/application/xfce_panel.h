// A real panel with a notification area: it shows status items from the message bus, and embeds
// small windows of programs (XEmbed).
//
// Thread:  one.
// Owner:   a test. The display and the bus outlive it.
// Errors:  a panel that does not start fails the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "x_display.h"

namespace glidemap::test {

class XfcePanel {
public:
    static bool isInstalled();

    XfcePanel(const XDisplay& display, const PrivateBus& bus);

    // The panel's area on the screen.
    Rectangle area() const;

private:
    Program::Command command(std::vector<std::string> words) const;

    const XDisplay& display;
    std::string busAddress;
    RuntimeFolder folder;
    std::unique_ptr<Program> settings; // the daemon that stores the panel's settings
    std::unique_ptr<Program> program;
};

} // namespace glidemap::test
