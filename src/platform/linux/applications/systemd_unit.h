// Derives a process's application from the name of its systemd unit. Desktops start each
// application in a unit with one of these names:
//
//     app[-LAUNCHER]-ID-RANDOM.scope     app[-LAUNCHER]-ID[@RANDOM].service
//     app-flatpak-ID-RANDOM.scope        snap.SNAP.APP-RANDOM.scope
//     dbus-CONNECTION-ID@NUMBER.service
//
// A dash within an ID should be written as \x2d, but some launchers do not escape it.
//
// Thread:  any.
// Errors:  none. Units with other names identify no application.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct UnitApplication {
    enum class Kind { ordinary, flatpak, snap };

    Kind kind = Kind::ordinary;
    std::vector<std::string> identifiers; // candidates, the most likely first; may be empty
    std::string random;                   // often the id of the launched process

    friend bool operator==(const UnitApplication&, const UnitApplication&) = default;
};

UnitApplication applicationOfUnit(std::string_view unit);

// Returns the unit named in the content of /proc/PID/cgroup; empty if the process is in no unit.
std::string unitOfControlGroups(std::string_view text);

} // namespace glidemap
