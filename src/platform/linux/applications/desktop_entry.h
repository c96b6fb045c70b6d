// What one installed desktop entry says about its application's windows.
//
// Thread:  any; a value.
// Errors:  none; empty where the entry says nothing.
#pragma once

#include <string>
#include <string_view>

namespace glidemap {

struct DesktopEntry {
    std::string identifier; // the entry's id without ".desktop"
    std::string name;       // localised
    std::string path;       // of the file
    std::string windowClass;
    std::string program;   // the file name of what Exec starts
    std::string flatpak;   // the application that Exec has flatpak run
    std::string steamGame; // the number of the game that Exec has Steam run
    bool visible = true;   // shown in menus
    bool inTerminal = false;

    friend bool operator==(const DesktopEntry&, const DesktopEntry&) = default;
};

// Fills in what the Exec line tells.
void readExec(DesktopEntry& entry, std::string_view line);

} // namespace glidemap
