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

std::string versionOf(const std::string& program) {
    const RuntimeFolder folder;
    Program printing({.words = {program, "--version"},
                      .environment = plainEnvironment(folder.path()),
                      .log = folder.path() / "log"});
    return printing.nextLine().value_or("");
}

// Returns what is missing for Cinnamon. Only Cinnamon 5 is accepted: Cinnamon 6.4 does not start on
// an X server without a real screen, such as Xvfb.
std::optional<std::string> missingForCinnamon() {
    if (const auto missing = needs({"Xvfb", "cinnamon", "cinnamon-screensaver"})()) {
        return missing;
    }
    return versionOf("cinnamon").starts_with("Cinnamon 5") ? std::nullopt
                                                           : std::optional("Cinnamon 5");
}

// sway 1.10 only marks the window as urgent, because the token has no input serial.
std::string whySwayTokenBringsNothingForward() {
    return versionOf("sway").starts_with("sway version 1.7")
               ? ""
               : "sway 1.10 requires a token with an input serial";
}

std::vector<DesktopKind> describeAll() {
    return {
        {.name = "GnomeShell",
         .missing = GnomeShell::missing,
         .start = startGnomeShell,
         .newWindow = NewWindow::mayStayBehind,
         .overview = Overview::opens,
         .token = LaunchTokenKind::both,
         .whyTokenBringsNothingForward = [] { return ""; },
         .terminal = foot},
        {.name = "KWin",
         .missing = needs({"kwin_wayland"}),
         .start = startKWin,
         .overview = Overview::opens,
         .lock = Lock::locks,
         .token = LaunchTokenKind::activationToken,
         .whyTokenBringsNothingForward = [] { return ""; },
         .terminal = konsole},
        {.name = "Sway",
         .missing = needs({"sway", "swaybar"}),
         .start = startSway,
         .statusBar = StatusBar::shown,
         .minimizing = Minimizing::none,
         .token = LaunchTokenKind::both,
         .whyTokenBringsNothingForward = whySwayTokenBringsNothingForward,
         .processes = Processes::unknown,
         .terminal = foot},
        {.name = "Labwc",
         .missing = needs({"labwc"}),
         .start = startLabwc,
         .workspaces = Workspaces::one, // labwc has more, but only key presses switch them
         .token = LaunchTokenKind::both,
         .whyTokenBringsNothingForward =
             [] { return "labwc 0.8 requires a token with an input serial"; },
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
