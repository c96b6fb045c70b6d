// Creates the diagnosis page that a user pastes into a bug report.
//
// The page is safe to publish: the home folder is shortened to "~". The page contains no bindings,
// window titles, device addresses, user names or host names.
//
// Thread:  one, in a program that exits afterwards (bus_survey.h). Needs neither a display nor a
//          bus; takes a few seconds if a bus does not reply.
// Errors:  reported as lines of the page.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace glidemap {

struct DiagnosisFacts {
    std::string version;
    std::string toolkit; // the interface library and its version
    std::optional<bool> isSwitchedOn;
    std::chrono::milliseconds patience{3000}; // for each bus
};

std::string diagnosisPage(const DiagnosisFacts& facts);

} // namespace glidemap
