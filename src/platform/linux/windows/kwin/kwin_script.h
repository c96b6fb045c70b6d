// Creates the scripts for KWin, and parses their reports. KWin exposes its windows only to scripts
// that run inside it.
//
// Thread:  any.
// Errors:  returns nullopt for an invalid report; an invalid window in a report is omitted.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// The object path, interface and method that the script calls.
constexpr const char* kwinReportPath = "/org/glidemap/Windows";
constexpr const char* kwinReportInterface = "org.glidemap.KWinWindows";
constexpr const char* kwinReportMethod = "Report";

// Returns a script that reports all windows to this bus name: once when it starts, and again
// whenever a window is added, removed, activated, or gets another desktop file or class.
std::string kwinScriptReportingTo(const std::string& busName);

// Returns a script that activates the window with this handle, if it exists. A minimised window is
// restored, and the window stays on its workspace.
std::string kwinScriptActivating(const std::string& handle);

struct KWinReport {
    std::vector<WindowIdentity> windows;
    std::optional<WindowIdentity> active;
    std::vector<std::string> handles = {}; // the handles of `windows`, in the same order
    std::string activeHandle = {};

    friend bool operator==(const KWinReport&, const KWinReport&) = default;
};

std::optional<KWinReport> readKWinReport(std::string_view text);

} // namespace glidemap
