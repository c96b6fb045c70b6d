// The properties of an installed desktop entry that identify the windows of its application.
//
// Thread:  any; a value.
// Errors:  none; a property that the entry lacks is empty.
#pragma once

#include <string>

namespace glidemap {

struct DesktopEntry {
    std::string identifier; // the entry's id without ".desktop"
    std::string name;       // localised
    std::string path;       // the path of the .desktop file
    std::string windowClass;
    std::string program;   // the file name of the program in the Exec key
    std::string flatpak;   // the application id of `flatpak run` in the Exec key
    std::string steamGame; // the game number of the Steam URL in the Exec key
    bool visible = true;   // shown in menus
    bool inTerminal = false;

    friend bool operator==(const DesktopEntry&, const DesktopEntry&) = default;
};

// Fills in the fields that come from the Exec line.
void readExec(DesktopEntry& entry, const std::string& line);

} // namespace glidemap
