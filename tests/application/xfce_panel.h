// A real panel with a notification area, as a desktop has it: it shows status items that come over
// the message bus, and small windows that programs hand it (XEmbed).
//
// Thread:  one.
// Owner:   a test; the display and the bus outlive it.
// Errors:  a panel that does not come up is a failure of the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "x_display.h"

namespace glidemap::application {

class XfcePanel {
public:
    static bool isInstalled();

    XfcePanel(const XDisplay& display, const desktops::PrivateBus& bus);

    // Where it is on the screen.
    Rectangle area() const;

private:
    desktops::Program::Command command(std::vector<std::string> words) const;

    const XDisplay& display;
    std::string busAddress;
    desktops::RuntimeFolder folder;
    std::unique_ptr<desktops::Program> settings; // the daemon that keeps them
    std::unique_ptr<desktops::Program> program;
};

} // namespace glidemap::application
