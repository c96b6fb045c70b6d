// Finds the desktop entry of a window. The evidence, in order of reliability:
//
//  0. A process in a flatpak's or a snap's unit belongs to one of that package's entries.
//  1. StartupWMClass equals the window's instance. Only this distinguishes web applications from
//     their browser.
//  2. The app id equals an entry's id, first exactly, then ignoring case.
//  3. StartupWMClass equals the app id exactly; then either one ignoring case.
//  4. The instance equals an entry's id.
//  5. The app id, then the instance, equals the last component of a reverse-DNS id: "konsole"
//     matches org.kde.konsole.
//  6. The window names the Steam game that the entry starts.
//  7. The process's unit names an entry. A command typed in a terminal runs in the terminal's unit,
//     so this rule excludes it.
//  8. The process was launched from the entry's file.
//  9. The entry starts the program that the process runs.
//
// Evidence that matches several entries is ignored, unless all but one are hidden from menus.
//
// Thread:  one; the desktop thread in the program.
// Owner:   the workspace. The entries and the reader must outlive it.
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

    // Null if no entry matches the window.
    const DesktopEntry* entryOf(const WindowIdentity& window) const;

    // Describes a window without an entry by its own identifiers; the result may be empty.
    Application describe(const WindowIdentity& window) const;

private:
    const std::vector<DesktopEntry>& entries;
    const ProcessReader& processes;
};

} // namespace glidemap
