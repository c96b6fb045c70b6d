// The accessibility bus of a desktop under test, and the controls that a screen reader finds there.
//
// Thread:  one.
// Owner:   a stage. The session bus outlives it.
// Errors:  a bus that does not start fails the test. For a control that no longer exists, act()
//          returns false and keysOf() returns an empty text.
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

namespace glidemap::test {

// A snapshot of one control.
struct Control {
    std::string busName;
    std::string path;
    std::string role; // the AT-SPI role name, such as "push button"
    std::string name;
    std::string label; // the name of the control's label; may be empty
    std::string description;
    std::string text; // the content of a text control
    Rectangle area;   // in screen coordinates
    std::uint64_t states = 0;
    int depth = 0; // 0 for a window; a child's depth is one more than its parent's

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
    Accessibility(const PrivateBus& session, const Program::Command& launcher);
    Accessibility(const Accessibility&) = delete;
    Accessibility& operator=(const Accessibility&) = delete;
    ~Accessibility();

    // Returns all visible controls of the process, parents before their children.
    Controls controlsOf(pid_t process) const;

    // Invokes the control's action, as a screen reader does.
    bool act(const Control& control) const;

    // Returns the keys that trigger the control's action; may be empty.
    std::string keysOf(const Control& control) const;

private:
    void connect(const std::string& address);
    std::string busNameOf(pid_t process) const;
    std::optional<Control> read(const std::string& busName, const std::string& path) const;
    void readBelow(const Control& parent, Controls& found) const;

    Program launcher;
    GDBusConnection* connection = nullptr;
};

} // namespace glidemap::test
