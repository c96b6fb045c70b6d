// The program while it runs on a stage, and what a person finds in it.
//
// Thread:  one.
// Owner:   a test; the stage outlives it. Destroying it kills a program that still runs.
// Errors:  what is not there in time is a failure of the test.
#pragma once

#include "stage.h"
#include "tray_menu.h"

#include <optional>
#include <string>
#include <vector>

namespace glidemap::application {

class RunningGlidemap {
public:
    explicit RunningGlidemap(Stage& stage);
    RunningGlidemap(Stage& stage, const desktops::Program::Command& command);

    pid_t process() const { return program.process(); }

    // The settings window has been shown, has the focus, and can be read.
    bool waitForWindow();
    std::optional<ManagedWindow> window() const;

    // What can be seen, in reading order of the tree.
    Controls controls() const;

    // The visible control with the role and the name, or with that label.
    std::optional<Control> find(const std::string& role, const std::string& name) const;
    Control waitFor(const std::string& role, const std::string& name) const;
    bool waitUntilGone(const std::string& role, const std::string& name) const;

    // Whatever can be read at the bottom of the window, as one line.
    std::string footer() const;
    bool waitForFooter(const std::string& text) const;

    std::optional<Control> focused() const;
    bool hasFocus(const std::string& name) const;
    bool waitForFocusOn(const std::string& name) const;

    // As with the mouse.
    void click(const std::string& role, const std::string& name) const;

    TrayMenu menu() const;

    // Sends the signal and answers the exit status, or 128 and the signal.
    std::optional<int> end(int signal);
    std::optional<int> waitForEnd();

    // Everything as text, for a failure's message.
    std::string described() const;

private:
    Stage& stage;
    desktops::Program program;
};

} // namespace glidemap::application
