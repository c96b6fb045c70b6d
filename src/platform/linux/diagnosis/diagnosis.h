// The page that a user pastes into a report: what the program finds on this computer.
//
// It is made to be published: the home folder is written "~", and there are no bindings, no texts
// of windows, no addresses of devices and no names of users and computers on it.
//
// Thread:  one, in a program that ends afterwards (bus_survey.h). Needs neither a display nor a bus,
//          and takes a few seconds where a bus does not answer.
// Errors:  lines of the page.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace glidemap {

struct DiagnosisFacts {
    std::string version;
    std::string toolkit; // the interface library and its version
    std::optional<bool> isSwitchedOn;
    std::chrono::milliseconds patience{3000}; // with each bus
};

std::string diagnosisPage(const DiagnosisFacts& facts);

} // namespace glidemap
