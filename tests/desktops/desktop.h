// A real desktop under test, with its own buses, and the actions of its user.
//
// Thread:  one.
// Owner:   a test. The destructor ends the desktop and all its programs.
// Errors:  a desktop that is not ready in time fails the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"

#include <string>

namespace glidemap::test {

class Desktop {
public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    // The environment of the desktop's programs, with the addresses of its buses.
    virtual Environment environment() const = 0;
    virtual const PrivateBus& bus() const = 0;

    // Returns a program that takes an application identifier and a title, shows a window, prints
    // "shown", and exits at the end of its standard input.
    virtual std::string windowProgram() const = 0;

    // Activates a window as a task bar does. If the desktop lists windows before it shows them,
    // first waits until all listed windows are shown.
    virtual void activate(const std::string& application) = 0;

    // Both functions return when the change is complete. minimize() works only on desktops that
    // minimise windows, and showSecondWorkspace() only on desktops whose workspaces the test can
    // switch.
    virtual void minimize(const std::string& /*application*/) {}
    virtual void showSecondWorkspace() {}

    // Returns the activation token that the desktop passes to a program that the user launches; may
    // be empty.
    virtual std::string activationToken() const { return {}; }

    // Makes the desktop activate windows whose programs show an activation token, if that is a
    // setting.
    virtual void allowActivation() {}

    // Returns the reason why the overview cannot work on this machine, or an empty string.
    virtual std::string whyNoOverview() const { return {}; }

    // isOverviewOpen() applies only to desktops with an overview, and isLocked() only to desktops
    // with a screen lock.
    virtual bool isOverviewOpen() const { return false; }
    virtual bool isLocked() const { return false; }

    // Returns whether an icon is in the status bar; applies only to desktops with a status bar.
    virtual bool showsStatusItem() const { return false; }
};

} // namespace glidemap::test
