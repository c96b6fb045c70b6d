// Finds the desktop entry of a window. These criteria are tried in order, the most reliable first:
//
//  0. If the window's process runs in the unit of a flatpak or a snap, only the entries of that
//     package are considered.
//  1. StartupWMClass equals the window's instance. Only this distinguishes web applications from
//     their browser.
//  2. The app id equals an entry's id, first exactly, then ignoring case.
//  3. StartupWMClass equals the app id, first exactly, then ignoring case; or else the instance,
//     ignoring case.
//  4. The instance equals an entry's id, ignoring case.
//  5. The app id, then the instance, equals the last component of a reverse-DNS id: "konsole"
//     matches org.kde.konsole.
//  6. The window's app id names the Steam game that the entry starts.
//  7. The process's unit names an entry. This excludes commands typed in a terminal and games
//     started by Steam, because they run in the unit of the terminal or of Steam.
//  8. The process was launched from the entry's file.
//  9. The entry starts the program that the process runs.
//
// If a criterion matches several entries, it is skipped, unless all but one of them are hidden from
// menus.
//
// Thread:  one; the desktop thread in the program.
// Owner:   the workspace. The entries and the reader must outlive the matcher.
// Errors:  none.
#pragma once

#include "dispatch/workspace.h"
#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/applications/process_reader.h"
#include "platform/linux/windows/window_backend.h"

#include <vector>

namespace glidemap {

class ApplicationMatcher {
public:
    ApplicationMatcher(const std::vector<DesktopEntry>& installed, const ProcessReader& reader);

    // Returns null if no entry matches the window.
    const DesktopEntry* entryOf(const WindowIdentity& window) const;

    // Describes a window without an entry by the identifiers of the window and its process. The
    // result may be empty.
    Application describe(const WindowIdentity& window) const;

private:
    const std::vector<DesktopEntry>& entries;
    const ProcessReader& processes;
};

} // namespace glidemap
