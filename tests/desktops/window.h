// One window of a program of its own, on a Wayland desktop under test.
//
// Thread:  one.
// Owner:   a test. Destroying it kills the program.
// Errors:  a window that does not appear in time is a failure of the test.
#pragma once

#include "desktops/program.h"

#include <string>

namespace glidemap::desktops {

class Window {
public:
    // The environment names the desktop. Returns once the window is on the screen.
    Window(const Environment& desktop, const std::string& appID, const std::string& title);

    void setTitle(const std::string& title);

    // Waits until the program has ended.
    void close();

    pid_t process() const { return program.process(); }

private:
    Program program;
};

} // namespace glidemap::desktops
