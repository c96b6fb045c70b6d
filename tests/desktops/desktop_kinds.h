// The desktops of README.md's table and their differences. The tests expect all other behaviour to
// be the same on each desktop.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include "desktop.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

// Whether a window that the user did not open gets the focus; GNOME Shell may refuse.
enum class NewWindow { comesForward, mayStayBehind };
enum class Overview { opens, none };
enum class Lock { locks, none };
enum class StatusBar { shown, none };
enum class Minimizing { works, none };
enum class Workspaces { several, one };
// Whether the desktop reports the process that owns a window.
enum class Processes { known, unknown };
// The token by which a launched program shows that the user requested the launch: a startup
// notification ID, an activation token, or one value as both.
enum class LaunchTokenKind { startupID, activationToken, both };

// A terminal with one process per window.
struct Terminal {
    std::string program;
    std::string command; // the command to run in the terminal is appended to it
};

struct DesktopKind {
    std::string name;
    // Returns the name of a missing program or package; nullopt if all are installed.
    std::function<std::optional<std::string>()> missing;
    std::function<std::unique_ptr<Desktop>()> start;
    NewWindow newWindow = NewWindow::comesForward;
    Overview overview = Overview::none;
    Lock lock = Lock::none;
    StatusBar statusBar = StatusBar::none;
    Minimizing minimizing = Minimizing::works;
    Workspaces workspaces = Workspaces::several;
    LaunchTokenKind token = LaunchTokenKind::both;
    // Returns why the desktop does not bring an open window forward when the window's program
    // presents an activation token. Returns an empty string if the desktop does.
    std::function<std::string()> whyTokenBringsNothingForward = [] {
        return "X11 has no activation tokens";
    };
    Processes processes = Processes::known;
    Terminal terminal;
};

void PrintTo(const DesktopKind& kind, std::ostream* out);

const std::vector<DesktopKind>& allDesktops();

} // namespace glidemap::test
