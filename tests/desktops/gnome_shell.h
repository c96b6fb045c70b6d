// A headless GNOME Shell with a session bus and a system bus of its own, which may be killed and
// started again.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a shell that is not ready in time is a failure of the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <optional>

namespace glidemap::desktops {

class GnomeShell {
public:
    // None if everything is, else the name of what is missing.
    static std::optional<std::string> missing();

    GnomeShell();

    // Returns once it has started, with the overview closed.
    void start();

    void disableExtension(const std::string& uuid) const;

    void kill() { program.reset(); }

    const PrivateBus& bus() const { return sessionBus; }

    // What its programs have to know.
    const Environment& environment() const { return settings; }

private:
    void addLoginSession();
    void closeOverview() const;
    void waitForOverview(bool open) const;
    bool isOverviewOpen() const;

    RuntimeFolder folder;
    PrivateBus sessionBus;
    PrivateBus systemBus;
    Environment settings;
    std::optional<Program> loginService;
    std::optional<Program> program;
};

} // namespace glidemap::desktops
