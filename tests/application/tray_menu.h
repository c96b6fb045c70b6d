// The menu of a status item, opened and read as a panel does.
//
// Thread:  one.
// Errors:  a menu that cannot be read fails the test, and has no entries.
#pragma once

#include "status_host.h"

#include <string>
#include <vector>

using GDBusConnection = struct _GDBusConnection;

namespace glidemap::test {

struct MenuEntry {
    int id = 0;        // changes each time the menu opens
    std::string label; // empty for a separator
    bool separator = false;
    bool checkable = false;
    bool checked = false;
    bool enabled = true;
    std::string shortcut; // for example, "Control+q"
};

class TrayMenu {
public:
    TrayMenu(GDBusConnection* bus, const StatusHost::Item& item);

    // Announces with AboutToShow that the menu opens, and returns the visible entries.
    std::vector<MenuEntry> open() const;

    // Opens the menu and chooses the entry with this label. Returns false if it does not exist.
    bool choose(const std::string& label) const;

private:
    GDBusConnection* bus;
    std::string busName;
    std::string path;
};

// Returns each entry as a text: "✓ Enable Gestures", "—", "Settings… [Control+x]". Parentheses mark
// a disabled entry, as in "(Download…)".
std::vector<std::string> describe(const std::vector<MenuEntry>& entries);

} // namespace glidemap::test
