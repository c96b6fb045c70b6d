// What KWin is given to run, and what comes back: KWin tells of its windows to nobody but the
// scripts that run in it.
//
// Thread:  any.
// Errors:  a report that makes no sense is none; a window in it that makes none is left out.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// Where the script calls back.
constexpr const char* kwinReportPath = "/org/glidemap/Windows";
constexpr const char* kwinReportInterface = "org.glidemap.KWinWindows";
constexpr const char* kwinReportMethod = "Report";

// The script reports at once how things stand, and then after every change, to whoever has this
// name on the bus.
std::string kwinScriptReportingTo(const std::string& busName);

// Gives the focus to the window of this handle, if there still is one: restored, and on its workspace.
std::string kwinScriptActivating(const std::string& handle);

struct KWinReport {
    std::vector<WindowIdentity> windows;
    std::optional<WindowIdentity> active;
    std::vector<std::string> handles = {}; // of the windows, in their order
    std::string activeHandle = {};

    friend bool operator==(const KWinReport&, const KWinReport&) = default;
};

std::optional<KWinReport> readKWinReport(std::string_view text);

} // namespace glidemap
