// Runs a headless KWin with its own bus. The constructor starts only the bus. The test starts KWin
// with start(), and may kill and restart KWin.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a compositor that is not ready in time fails the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <optional>
#include <string>

namespace glidemap::test {

class KWin {
public:
    // `windows` starts quickly; `whole` adds the overview, which needs OpenGL, and the screen lock.
    enum class Extent { windows, whole };

    static bool isInstalled();

    explicit KWin(Extent extent = Extent::windows);

    // Installs a desktop entry for the test program, so that it may use protected interfaces. The
    // default value lists the interfaces in Glidemap's entry. Call this before start().
    void
    installThisProgram(const std::string& interfaces = "org_kde_plasma_window_management") const;

    // Returns before KWin is ready.
    void start();

    void waitUntilReady();

    void kill() { program.reset(); }

    void breakBus() { sessionBus.kill(); }

    const PrivateBus& bus() const { return sessionBus; }

    // The environment of KWin's programs.
    const Environment& environment() const { return settings; }

private:
    RuntimeFolder folder;
    PrivateBus sessionBus;
    Extent extent;
    Environment settings;
    std::optional<Program> program;
};

} // namespace glidemap::test
