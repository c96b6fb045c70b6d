// A headless KWin with a bus of its own, which may be started later, and killed and started again.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a compositor that is not ready in time is a failure of the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <optional>

namespace glidemap::desktops {

class KWin {
public:
    static bool isInstalled();

    KWin();

    // Returns at once: it is on its way.
    void start();

    void waitUntilReady();

    void kill() { program.reset(); }

    void breakBus() { sessionBus.kill(); }

    const PrivateBus& bus() const { return sessionBus; }

    // What its programs have to know.
    const Environment& environment() const { return settings; }

private:
    RuntimeFolder folder;
    PrivateBus sessionBus;
    Environment settings;
    std::optional<Program> program;
};

} // namespace glidemap::desktops
