// An application that can be chosen: what a binding keeps of it.
//
// Thread:  any; a plain value.
// Errors:  none.
#pragma once

#include <string>

namespace glidemap {

// The identifier says which application it is. Equal only if both are.
struct RunningApp {
    std::string bundleID;
    std::string name;

    friend bool operator==(const RunningApp&, const RunningApp&) = default;
};

} // namespace glidemap
