// Prevents Qt from waiting for an unresponsive session bus. Qt connects on the main thread, where
// the D-Bus library would block for half a minute.
//
// The constructor checks the bus. If it does not respond, Qt gets no bus for the rest of the run,
// so there is no status item on the bus and no support for screen readers. The program's own
// services still use the bus if it recovers.
//
// Thread:  the main thread, while no other thread changes the environment. The constructor blocks
//          for at most `patience`.
// Owner:   the program's start code. It creates this object before the application object, and
//          calls finish() right after creating the application object.
// Errors:  none.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace glidemap {

class ToolkitBus {
public:
    // A working bus responds within a millisecond, or within a few hundred milliseconds during a
    // busy login.
    static constexpr std::chrono::milliseconds patience{1000};

    ToolkitBus();
    ToolkitBus(const ToolkitBus&) = delete;
    ToolkitBus& operator=(const ToolkitBus&) = delete;

    // Restores the environment for the program's own services and for launched programs.
    void finish() const;

    bool isSilent() const { return silent; }

private:
    bool silent = false;
    std::optional<std::string> address; // the original value of the environment variable, if set
};

} // namespace glidemap
