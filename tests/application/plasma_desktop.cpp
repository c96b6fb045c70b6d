#include "plasma_desktop.h"

#include "service_program.h"
#include "waiting.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace glidemap::test {

namespace {

constexpr const char* activitiesName = "org.kde.ActivityManager";
constexpr const char* daemonName = "org.kde.kded6";
constexpr const char* socketName = "wayland-plasma";
constexpr int thickness = 32;

// One panel at the upper edge, which contains only the system tray. The tray shows each of the
// shell's own items that `knownItems` does not list. So `knownItems` lists all of them, and the
// tray shows only items of other programs.
constexpr const char* panelText = R"([Containments][1]
activityId=
formfactor=2
immutability=1
lastScreen=0
location=3
plugin=org.kde.panel

[Containments][1][Applets][2]
immutability=1
plugin=org.kde.plasma.systemtray

[Containments][1][Applets][2][Configuration]
SystrayContainmentId=3

[Containments][3]
activityId=
formfactor=2
lastScreen=0
location=3
plugin=org.kde.plasma.private.systemtray

[Containments][3][General]
extraItems=
knownItems=org.kde.kdeconnect,org.kde.kscreen,org.kde.plasma.battery,org.kde.plasma.bluetooth,org.kde.plasma.brightness,org.kde.plasma.cameraindicator,org.kde.plasma.clipboard,org.kde.plasma.devicenotifier,org.kde.plasma.keyboardindicator,org.kde.plasma.keyboardlayout,org.kde.plasma.manage-inputmethod,org.kde.plasma.mediacontroller,org.kde.plasma.networkmanagement,org.kde.plasma.notifications,org.kde.plasma.printmanager,org.kde.plasma.vault,org.kde.plasma.volume,org.kde.plasma.weather
)";

// The panel is opaque and as wide as the screen.
constexpr const char* shellText = R"([PlasmaViews][Panel 1]
floating=0
panelOpacity=1

[PlasmaViews][Panel 1][Defaults]
thickness=32
)";

} // namespace

std::string PlasmaDesktop::missing() {
    if (!XDisplay::isInstalled()) {
        return "Xvfb or openbox";
    }
    for (const char* const program : {"kwin_wayland", "plasmashell", "plasma-apply-colorscheme"}) {
        if (!test::isInstalled(program)) {
            return program;
        }
    }
    for (const char* const service : {activitiesName, daemonName}) {
        if (!isServiceInstalled(service)) {
            return service;
        }
    }
    return std::filesystem::exists("/usr/share/plasma/plasmoids/org.kde.panel") ? ""
                                                                                : "plasma-desktop";
}

PlasmaDesktop::PlasmaDesktop() {
    home.write("config/plasma-org.kde.plasma.desktop-appletsrc", panelText);
    home.write("config/plasmashellrc", shellText);
    startCompositor();
    startDaemons();
}

Environment PlasmaDesktop::environment() const {
    Environment values = plainEnvironment(home.path());
    values["KDE_FULL_SESSION"] = "true";
    values["KDE_SESSION_VERSION"] = "6";
    values["QT_QPA_PLATFORM"] = "wayland";
    values["QT_QUICK_BACKEND"] = "software"; // the machine may have no graphics card
    values["WAYLAND_DISPLAY"] = socketName;
    values["XDG_CURRENT_DESKTOP"] = "KDE";
    return values;
}

// The installed file has a capability, and restricted machines refuse to execute such a file. A
// copy has no capability.
void PlasmaDesktop::startCompositor() {
    const std::filesystem::path copy = home.path() / "kwin_wayland";
    std::filesystem::copy_file("/usr/bin/kwin_wayland", copy);
    const std::filesystem::path ready = home.write("ready.sh", "#!/bin/sh\necho ready\n");
    std::filesystem::permissions(ready, std::filesystem::perms::owner_all);
    Program::Command words =
        command({copy, "--x11-display", display.name(), "--width", "1200", "--height", "700",
                 "--no-lockscreen", "--socket", socketName, ready},
                {{"KWIN_COMPOSE", "Q"}});
    words.environment.erase("WAYLAND_DISPLAY");
    words.environment.erase("QT_QPA_PLATFORM");
    compositor = std::make_unique<Program>(words);
    EXPECT_EQ(compositor->nextLine(), "ready");
    EXPECT_TRUE(waitUntil([this] { return !display.windows().empty(); }))
        << "the compositor has no window";
    area = display.windows().empty() ? Rectangle{} : display.windows().front().content;
}

void PlasmaDesktop::startDaemons() {
    activities = start({serviceProgram(activitiesName)});
    daemon = start({serviceProgram(daemonName)});
    session.waitForName(activitiesName);
    session.waitForName(daemonName);
}

void PlasmaDesktop::startPanel() {
    shell = start({"plasmashell", "--no-respawn"});
    EXPECT_TRUE(waitUntil([this] { return watcherHasHost(); }))
        << "the panel accepts no items; its log:\n"
        << contentOf(home.path() / "plasmashell.log");
}

Picture PlasmaDesktop::screen() const {
    return {display, area};
}

Picture PlasmaDesktop::panel() const {
    return screen().part({0, 0, area.width, thickness});
}

void PlasmaDesktop::choose(ColorScheme scheme) const {
    run({"plasma-apply-colorscheme", scheme == ColorScheme::dark ? "BreezeDark" : "BreezeLight"});
}

} // namespace glidemap::test
