// A headless sway, which stands for the wlroots family of compositors.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a compositor that is not ready in time is a failure of the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <string>

namespace glidemap::desktops {

class Sway {
public:
    Sway();

    // What its programs have to know.
    const Environment& environment() const { return settings; }

    // Gives it one of its commands and waits until it has obeyed.
    void command(const std::string& text) const;

    void kill() { program.kill(); }

private:
    RuntimeFolder folder;
    Environment settings;
    Program program;
};

} // namespace glidemap::desktops
