// A separate process, controlled by the test, with one window on an X server.
//
// Thread:  one.
// Owner:   a test. The destructor kills the process.
// Errors:  a command that is not completed in time fails the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "desktops/x_server.h"

#include <cstdint>
#include <string>

namespace glidemap::test {

class XClient {
public:
    // Connects to the server and creates the window, which stays hidden until map().
    explicit XClient(const XServer& server);

    // The next four functions set a property of the window, or of the root window after useRoot():
    // to cardinals, to atoms by their names, or to text, in which "\0" is a null character.
    void setNumbers(const std::string& property, const std::string& numbers);
    void setAtoms(const std::string& property, const std::string& names);
    void setText(const std::string& property, const std::string& text);
    void repeatText(const std::string& property, const std::string& text, int times);

    void useRoot();
    void map();      // returns once the window is on the screen
    void activate(); // through the window manager
    void wander();   // moves the window 100 times, by one pixel each
    void destroy();
    void grabServer();
    void ungrabServer();

    // Sets the properties that programs usually set.
    void describe(const std::string& instance, const std::string& name);

    // Kills the process without any clean-up.
    void kill() { program.kill(); }

    std::uint32_t window() const { return identifier; }
    pid_t process() const { return program.process(); }

private:
    void obey(const std::string& line);

    RuntimeFolder folder;
    Program program;
    std::uint32_t identifier = 0;
};

} // namespace glidemap::test
