// Runs a headless labwc, a small stacking compositor that uses wlroots.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a compositor that is not ready in time fails the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

namespace glidemap::test {

class Labwc {
public:
    Labwc();

    // The environment of labwc's programs.
    const Environment& environment() const { return settings; }

private:
    RuntimeFolder folder;
    Environment settings;
    Program program;
};

} // namespace glidemap::test
