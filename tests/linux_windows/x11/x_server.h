// An X server without a screen, with a window manager if the test wants one.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a server that is not ready in time is a failure of the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <memory>
#include <string>
#include <vector>

namespace glidemap::desktops {

class XServer {
public:
    // Empty, or why there can be none here.
    static std::string whyNot();

    explicit XServer(const std::vector<std::string>& arguments = {});

    // As in DISPLAY.
    const std::string& display() const { return name; }
    const Environment& environment() const { return settings; }

    // openbox, in the place of the one before.
    void startWindowManager();
    void killWindowManager();

    void kill() { server.kill(); }

private:
    RuntimeFolder folder;
    Program server;
    std::string name;
    Environment settings;
    std::unique_ptr<Program> manager;
};

} // namespace glidemap::desktops
