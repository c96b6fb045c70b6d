// A real desktop under test, with buses of its own, and what a person does with it.
//
// Thread:  one.
// Owner:   a test. Destroying it ends the desktop and all its programs.
// Errors:  a desktop that is not ready in time is a failure of the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"

#include <string>

namespace glidemap::desktops {

class Desktop {
public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    // The environment of its programs, the addresses of its buses included.
    virtual Environment environment() const = 0;
    virtual const PrivateBus& bus() const = 0;

    // A program that takes the application's identifier and a title, shows a window, says "shown",
    // and ends with its standard input.
    virtual std::string windowProgram() const = 0;

    // As a task bar does it.
    virtual void activate(const std::string& application) = 0;

    // Once both have happened. Only where the desktop minimises windows, or has workspaces that the
    // test can change.
    virtual void minimize(const std::string& /*application*/) {}
    virtual void showSecondWorkspace() {}

    // The activation token that the desktop gives to a program that the user launches; may be empty.
    virtual std::string activationToken() const { return {}; }

    // Empty, or why this machine keeps the desktop from showing its overview.
    virtual std::string whyNoOverview() const { return {}; }

    // Only where the desktop has an overview, or a screen lock.
    virtual bool isOverviewOpen() const { return false; }
    virtual bool isLocked() const { return false; }

    // Whether the desktop shows an icon in its status bar; only where it has one.
    virtual bool showsStatusItem() const { return false; }
};

} // namespace glidemap::desktops
