// The accessibility bus of a desktop under test, and what a screen reader finds on it.
//
// Thread:  one.
// Owner:   a stage; the session's bus outlives it.
// Errors:  a bus that does not come up is a failure of the test. A control that has gone answers
//          nothing.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "x_display.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::application {

// One control as it was when it was read.
struct Control {
    std::string busName;
    std::string path;
    std::string role; // in the bus's own words: "push button"
    std::string name;
    std::string label; // the name of what labels it, if anything does
    std::string description;
    std::string text; // of what holds one
    Rectangle area;   // on the screen
    std::uint64_t states = 0;
    int depth = 0; // below the program itself

    bool is(int state) const { return (states >> state & 1) != 0; }
    bool isVisible() const;
    bool isChecked() const;
    bool isEnabled() const;
    bool isFocusable() const;
    bool isFocused() const;
};

std::string describe(const Control& control);

using Controls = std::vector<Control>;

class Accessibility {
public:
    Accessibility(const desktops::PrivateBus& session, const desktops::Program::Command& launcher);
    Accessibility(const Accessibility&) = delete;
    Accessibility& operator=(const Accessibility&) = delete;
    ~Accessibility();

    // Whatever can be seen of the process, parents before their children.
    Controls controlsOf(pid_t process) const;

    // What a person who cannot use a mouse does.
    bool act(const Control& control) const;

    // The keys that reach the control from anywhere in its window; empty if there are none.
    std::string keysOf(const Control& control) const;

private:
    void connect(const std::string& address);
    std::string busNameOf(pid_t process) const;
    std::optional<Control> read(const std::string& busName, const std::string& path) const;
    void readBelow(const Control& parent, Controls& found) const;

    desktops::Program launcher;
    GDBusConnection* connection = nullptr;
};

} // namespace glidemap::application
