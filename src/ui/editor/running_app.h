// An application that the user can choose, with the fields that a binding stores.
//
// Thread:  any; a plain value.
// Errors:  none.
#pragma once

#include <string>

namespace glidemap {

// Two applications are equal only if both identifier and name are equal.
struct RunningApp {
    std::string bundleID;
    std::string name;

    friend bool operator==(const RunningApp&, const RunningApp&) = default;
};

} // namespace glidemap
