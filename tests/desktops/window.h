// Shows one window of a separate process on a Wayland desktop under test.
//
// Thread:  one.
// Owner:   a test. The destructor kills the process.
// Errors:  a window that does not appear in time fails the test.
#pragma once

#include "desktops/program.h"

#include <string>

namespace glidemap::test {

class Window {
public:
    // `desktop` is the environment that contains the display. Returns when the window is on the
    // screen.
    Window(const Environment& desktop, const std::string& appID, const std::string& title);

    void setTitle(const std::string& title);

    // Waits until the process has exited.
    void close();

    pid_t process() const { return program.process(); }

private:
    Program program;
};

} // namespace glidemap::test
