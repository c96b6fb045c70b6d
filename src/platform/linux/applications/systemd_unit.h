// Which application a process belongs to by the systemd unit it runs in. Desktops put each
// application that they launch into a unit whose name says which it is:
//
//     app[-LAUNCHER]-ID-RANDOM.scope     app[-LAUNCHER]-ID[@RANDOM].service
//     app-flatpak-ID-RANDOM.scope        snap.SNAP.APP-RANDOM.scope
//     dbus-CONNECTION-ID@NUMBER.service
//
// A dash inside an ID is written \x2d, but not every launcher takes the trouble.
//
// Thread:  any.
// Errors:  none. A unit of another kind names no application.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct UnitApplication {
    enum class Kind { ordinary, flatpak, snap };

    Kind kind = Kind::ordinary;
    std::vector<std::string> identifiers; // what it may be, the likeliest first; empty if none
    std::string random;                   // often the number of the process that was launched

    friend bool operator==(const UnitApplication&, const UnitApplication&) = default;
};

UnitApplication applicationOfUnit(std::string_view unit);

// The unit that the text of /proc/PID/cgroup puts the process in; empty if it is in none.
std::string unitOfControlGroups(std::string_view text);

} // namespace glidemap
