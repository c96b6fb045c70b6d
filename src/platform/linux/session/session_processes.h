// Lists the running programs with given names that belong to this user and use this display. The
// display is compared, because another session of the same user may run programs with the same
// names.
//
// Thread:  any.
// Errors:  none; a process that cannot be read or has exited is skipped.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct SessionProcess {
    std::string name; // truncated to 15 bytes by the kernel
    std::vector<std::string> arguments;

    friend bool operator==(const SessionProcess&, const SessionProcess&) = default;
};

// Returns the bytes of the file, or an empty string if it cannot be read.
std::string contentOrEmpty(const std::filesystem::path& path);

std::vector<SessionProcess> sessionProcesses(std::span<const std::string_view> names);

} // namespace glidemap
