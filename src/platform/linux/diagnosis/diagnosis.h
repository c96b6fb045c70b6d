// Creates the diagnosis page that a user can paste into a bug report.
//
// The page is safe to publish: the home folder is shortened to "~", and the page contains no
// bindings, window titles, device addresses, user names or host names.
//
// Thread:  one, in a program that exits afterwards (see bus_survey.h). Needs neither a display nor
//          a bus. Takes a few seconds if a bus does not reply.
// Errors:  reported as lines of the page.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace glidemap {

struct DiagnosisFacts {
    std::string version;
    std::string toolkit; // the name and version of the interface library
    std::optional<bool> isSwitchedOn;
    std::chrono::milliseconds patience{3000}; // for each bus
};

std::string diagnosisPage(const DiagnosisFacts& facts);

} // namespace glidemap
