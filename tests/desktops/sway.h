// Runs a headless sway, as an example of a wlroots compositor.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a compositor that is not ready in time fails the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <string>

namespace glidemap::test {

class Sway {
public:
    Sway();

    // The environment of sway's programs.
    const Environment& environment() const { return settings; }

    // Sends a command and waits until sway has executed it.
    void command(const std::string& text) const;

    void kill() { program.kill(); }

private:
    RuntimeFolder folder;
    Environment settings;
    Program program;
};

} // namespace glidemap::test
