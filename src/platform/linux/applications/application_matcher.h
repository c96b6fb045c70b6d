// Finds the desktop entry that a window belongs to. The evidence, the surest first:
//
//  0. A process in a flatpak's or a snap's unit can only be one of the entries of that package.
//  1. StartupWMClass is the window's instance. Web applications differ from their browser in
//     nothing else.
//  2. The app id is an entry's id, exactly, then in any case.
//  3. StartupWMClass is the app id, exactly; then either one in any case.
//  4. The instance is an entry's id.
//  5. The app id, then the instance, is the last component of a reverse-DNS id: "konsole" is
//     org.kde.konsole.
//  6. The window names the Steam game that the entry starts.
//  7. The unit of the process names an entry. What was typed into a terminal runs in the
//     terminal's unit, so this does not count for it.
//  8. The process was launched from the entry's file.
//  9. The entry starts the program that the process runs.
//
// What holds for several entries proves nothing, unless all but one are hidden from menus.
//
// Thread:  one; the desktop thread in the program.
// Owner:   the workspace. The entries and the reader must live longer.
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

    // Null if no entry is the window's.
    const DesktopEntry* entryOf(const WindowIdentity& window) const;

    // What a window without an entry calls itself; nothing if that is nothing.
    Application describe(const WindowIdentity& window) const;

private:
    const std::vector<DesktopEntry>& entries;
    const ProcessReader& processes;
};

} // namespace glidemap
