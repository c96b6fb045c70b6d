// An X server without a screen, optionally with a window manager.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a server that is not ready in time fails the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <memory>
#include <string>
#include <vector>

namespace glidemap::test {

class XServer {
public:
    // Returns the reason why no server can run here, or an empty string.
    static std::string whyNot();

    explicit XServer(const std::vector<std::string>& arguments = {});

    // The display's name, in the format of DISPLAY.
    const std::string& display() const { return name; }
    const Environment& environment() const { return settings; }

    // Starts openbox in place of the previous window manager.
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

} // namespace glidemap::test
