// Describes an installed desktop entry, as far as it identifies its application's windows.
//
// Thread:  any; a value.
// Errors:  none; a field is empty if the entry lacks it.
#pragma once

#include <string>
#include <string_view>

namespace glidemap {

struct DesktopEntry {
    std::string identifier; // the entry's id without ".desktop"
    std::string name;       // localised
    std::string path;       // of the .desktop file
    std::string windowClass;
    std::string program;   // the file name of the program in Exec
    std::string flatpak;   // the application id in Exec's `flatpak run`
    std::string steamGame; // the game number in Exec's Steam URL
    bool visible = true;   // shown in menus
    bool inTerminal = false;

    friend bool operator==(const DesktopEntry&, const DesktopEntry&) = default;
};

// Fills in the fields that come from the Exec line.
void readExec(DesktopEntry& entry, std::string_view line);

} // namespace glidemap
