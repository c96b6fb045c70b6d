// A headless labwc, a small stacking compositor of the wlroots family.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a compositor that is not ready in time is a failure of the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

namespace glidemap::desktops {

class Labwc {
public:
    Labwc();

    // The environment of its programs.
    const Environment& environment() const { return settings; }

private:
    RuntimeFolder folder;
    Environment settings;
    Program program;
};

} // namespace glidemap::desktops
