// The program while it runs on a stage, and its controls.
//
// Thread:  one.
// Owner:   a test. The stage outlives it. Destruction kills a program that is still running.
// Errors:  a control or window that does not appear in time fails the test.
#pragma once

#include "stage.h"
#include "tray_menu.h"

#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

class RunningGlidemap {
public:
    explicit RunningGlidemap(ApplicationStage& stage);
    RunningGlidemap(ApplicationStage& stage, const Program::Command& command);

    pid_t process() const { return program.process(); }

    // Waits until a window titled "Glidemap" is active and its controls are accessible.
    bool waitForWindow();
    std::optional<ManagedWindow> window() const;

    // Returns the visible controls in tree order.
    Controls controls() const;

    // Returns the visible control with this role whose name or label is `name`.
    std::optional<Control> find(const std::string& role, const std::string& name) const;
    Control waitFor(const std::string& role, const std::string& name) const;
    bool waitUntilGone(const std::string& role, const std::string& name) const;

    // Returns the texts at the bottom of the window, as one line.
    std::string footer() const;
    bool waitForFooter(const std::string& text) const;

    std::optional<Control> focused() const;
    bool hasFocus(const std::string& name) const;
    bool waitForFocusOn(const std::string& name) const;

    // Clicks the control with the mouse.
    void click(const std::string& role, const std::string& name) const;

    TrayMenu menu() const;

    // Sends the signal and returns the exit status, or 128 plus the signal that ended the program.
    std::optional<int> end(int signal);
    std::optional<int> waitForEnd();

    // Returns all controls as text, for a failure message.
    std::string described() const;

private:
    ApplicationStage& stage;
    Program program;
};

} // namespace glidemap::test
