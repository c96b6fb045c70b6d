#include "xfce_desktop.h"

#include "service_program.h"
#include "waiting.h"

#include <gtest/gtest.h>

namespace glidemap::test {

std::string XfceDesktop::missing() {
    if (!XDisplay::isInstalled()) {
        return "Xvfb or openbox";
    }
    return XfcePanel::isInstalled() ? "" : "xfce4-panel";
}

Environment XfceDesktop::environment() const {
    Environment values = plainEnvironment(home.path());
    values["DISPLAY"] = display.name();
    values["XDG_CURRENT_DESKTOP"] = "XFCE";
    return values;
}

void XfceDesktop::startPanel() {
    bar.emplace(display, session);
    EXPECT_TRUE(waitUntil([this] { return watcherHasHost(); })) << "the panel accepts no items";
}

void XfceDesktop::choose(ColorScheme scheme) const {
    chooseForGtk(*this, scheme == ColorScheme::dark);
}

} // namespace glidemap::test
