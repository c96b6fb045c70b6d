// The running programs of this session that have one of some names: those of this user, on the display that is ours. Another
// session of the same user has programs of the same names.
//
// Thread:  any.
// Errors:  none. A process that cannot be read, or has ended meanwhile, is not there.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct SessionProcess {
    std::string name; // as the kernel has it: the first 15 bytes of the program's file name
    std::vector<std::string> arguments;

    friend bool operator==(const SessionProcess&, const SessionProcess&) = default;
};

std::vector<SessionProcess> sessionProcesses(std::span<const std::string_view> names);

} // namespace glidemap
