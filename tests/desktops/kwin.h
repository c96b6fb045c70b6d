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
    // The windows alone, which is quick; or also the overview, which needs OpenGL, and the lock.
    enum class Extent { windows, whole };

    static bool isInstalled();

    explicit KWin(Extent extent = Extent::windows);

    // Returns at once: it is on its way.
    void start();

    void waitUntilReady();

    void kill() { program.reset(); }

    void breakBus() { sessionBus.kill(); }

    const PrivateBus& bus() const { return sessionBus; }

    // The environment of its programs.
    const Environment& environment() const { return settings; }

private:
    RuntimeFolder folder;
    PrivateBus sessionBus;
    Extent extent;
    Environment settings;
    std::optional<Program> program;
};

} // namespace glidemap::desktops
