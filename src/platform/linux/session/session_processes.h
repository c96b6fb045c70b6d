// Lists the running programs with given names in this session: those of this user on this display.
// Another session of the same user may run programs with the same names.
//
// Thread:  any.
// Errors:  none; a process that cannot be read, or has exited, is skipped.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct SessionProcess {
    std::string name; // truncated by the kernel to 15 bytes
    std::vector<std::string> arguments;

    friend bool operator==(const SessionProcess&, const SessionProcess&) = default;
};

std::vector<SessionProcess> sessionProcesses(std::span<const std::string_view> names);

} // namespace glidemap
