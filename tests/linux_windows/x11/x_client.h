// A program of its own with one window on an X server, which does what it is told.
//
// Thread:  one.
// Owner:   a test. Destroying it kills the program.
// Errors:  a program that does not do in time what it is told is a failure of the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "linux_windows/x11/x_server.h"

#include <cstdint>
#include <string>

namespace glidemap::desktops {

class XClient {
public:
    // Connected; there is no window yet.
    explicit XClient(const XServer& server);

    // A property of the window, or of the root if that was chosen. What it is set to is cardinals,
    // atoms by their names, or text, in which "\0" is a null.
    void setNumbers(const std::string& property, const std::string& numbers);
    void setAtoms(const std::string& property, const std::string& names);
    void setText(const std::string& property, const std::string& text);
    void repeatText(const std::string& property, const std::string& text, int times);

    void useRoot();
    void map();      // returns once the window is on the screen
    void activate(); // by the window manager
    void wander();   // moves the window to and fro
    void destroy();
    void grabServer();
    void ungrabServer();

    // What programs usually say.
    void describe(const std::string& instance, const std::string& name);

    // Ends without a word.
    void kill() { program.kill(); }

    std::uint32_t window() const { return identifier; }
    pid_t process() const { return program.process(); }

private:
    void obey(const std::string& line);

    RuntimeFolder folder;
    Program program;
    std::uint32_t identifier = 0;
};

} // namespace glidemap::desktops
