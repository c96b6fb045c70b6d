#include "desktop_kinds.h"

#include "desktops/gnome_shell.h"
#include "desktops/runtime_folder.h"
#include "wayland_desktops.h"
#include "x11_desktops.h"

#include <initializer_list>
#include <ostream>
#include <utility>

namespace glidemap::test {

namespace {

// Returns a function that returns the first of these programs that is not installed, or nullopt.
std::function<std::optional<std::string>()> needs(std::initializer_list<const char*> programs) {
    return [all = std::vector<std::string>(programs.begin(),
                                           programs.end())]() -> std::optional<std::string> {
        for (const std::string& program : all) {
            if (!isInstalled(program)) {
                return program;
            }
        }
        return std::nullopt;
    };
}

const Terminal foot{"foot", "foot"};
const Terminal xterm{"xterm", "xterm -e"};

// The terminal for KWin. In the tests, KWin's screen has no size in millimetres, and foot would
// divide by that size.
const Terminal konsole{"konsole", "env QT_QPA_PLATFORM=wayland konsole -e"};

// Returns what is missing for Cinnamon. Only Cinnamon 5 is accepted: Cinnamon 6.4 does not start on
// an X server without a real screen, such as Xvfb.
std::optional<std::string> missingForCinnamon() {
    if (const auto missing = needs({"Xvfb", "cinnamon", "cinnamon-screensaver"})()) {
        return missing;
    }
    const RuntimeFolder folder;
    Program cinnamon({.words = {"cinnamon", "--version"},
                      .environment = plainEnvironment(folder.path()),
                      .log = folder.path() / "log"});
    const std::string version = cinnamon.nextLine().value_or("");
    return version.starts_with("Cinnamon 5") ? std::nullopt : std::optional("Cinnamon 5");
}

std::vector<DesktopKind> describeAll() {
    return {
        {.name = "GnomeShell",
         .missing = GnomeShell::missing,
         .start = startGnomeShell,
         .newWindow = NewWindow::mayStayBehind,
         .overview = Overview::opens,
         .token = LaunchTokenKind::token,
         .terminal = foot},
        {.name = "KWin",
         .missing = needs({"kwin_wayland"}),
         .start = startKWin,
         .overview = Overview::opens,
         .lock = Lock::locks,
         .terminal = konsole},
        {.name = "Sway",
         .missing = needs({"sway", "swaybar"}),
         .start = startSway,
         .statusBar = StatusBar::shown,
         .minimizing = Minimizing::none,
         .processes = Processes::unknown,
         .terminal = foot},
        {.name = "Labwc",
         .missing = needs({"labwc"}),
         .start = startLabwc,
         .workspaces = Workspaces::one, // only key presses switch its workspaces
         .processes = Processes::unknown,
         .terminal = foot},
        {.name = "Xfce",
         .missing = needs({"Xvfb", "xfwm4", "xfdesktop", "xfce4-panel"}),
         .start = startXfce,
         .lock = isInstalled("xfce4-screensaver") ? Lock::locks : Lock::none,
         .statusBar = StatusBar::shown,
         .token = LaunchTokenKind::startupID,
         .terminal = xterm},
        {.name = "Cinnamon",
         .missing = missingForCinnamon,
         .start = startCinnamon,
         .overview = Overview::opens,
         .lock = Lock::locks,
         .statusBar = StatusBar::shown,
         .token = LaunchTokenKind::startupID,
         .terminal = xterm},
        {.name = "Openbox",
         .missing = needs({"Xvfb", "openbox"}),
         .start = startOpenbox,
         .token = LaunchTokenKind::startupID,
         .terminal = xterm},
    };
}

} // namespace

const std::vector<DesktopKind>& allDesktops() {
    static const std::vector<DesktopKind> all = describeAll();
    return all;
}

void PrintTo(const DesktopKind& kind, std::ostream* out) {
    *out << kind.name;
}

} // namespace glidemap::test
