// The menu of a status item, opened and read as a desktop's panel does.
//
// Thread:  one.
// Errors:  a menu that cannot be read is a failure of the test, and has no entries.
#pragma once

#include "status_host.h"

#include <string>
#include <vector>

using GDBusConnection = struct _GDBusConnection;

namespace glidemap::application {

struct MenuEntry {
    int id = 0;        // another one each time the menu is opened
    std::string label; // empty for a separator
    bool separator = false;
    bool checkable = false;
    bool checked = false;
    bool enabled = true;
    std::string shortcut; // "Control+q"
};

class TrayMenu {
public:
    TrayMenu(GDBusConnection* bus, const StatusHost::Item& item);

    // Those that are visible, once the program has been told that the menu is about to be shown.
    std::vector<MenuEntry> open() const;

    // Opens it and chooses what has the label. False if nothing has.
    bool choose(const std::string& label) const;

private:
    GDBusConnection* bus;
    std::string busName;
    std::string path;
};

// "✓ Enable Gestures", "—", "Settings… [Control+x]", "(Download…)" where it cannot be chosen.
std::vector<std::string> describe(const std::vector<MenuEntry>& entries);

} // namespace glidemap::application
