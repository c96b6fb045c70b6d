// Keeps Qt from waiting for a session bus that does not respond: Qt connects on the main thread,
// and the D-Bus library waits for half a minute.
//
// The constructor tests the bus first. If it does not respond, Qt finds no bus for the whole run of
// the program: no status item on the bus and no screen reader. The program's own services still use
// the bus if it recovers.
//
// Thread:  the main thread, while no other thread changes the environment. The constructor blocks
//          for at most `patience`.
// Owner:   the program's start code: creates it before the application object and calls finish()
//          right after that.
// Errors:  none.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace glidemap {

class ToolkitBus {
public:
    // A working bus responds within a millisecond, or within some hundred at a busy login.
    static constexpr std::chrono::milliseconds patience{1000};

    ToolkitBus();
    ToolkitBus(const ToolkitBus&) = delete;
    ToolkitBus& operator=(const ToolkitBus&) = delete;

    // Restores the environment, for the program's own services and for launched programs.
    void finish() const;

    bool isSilent() const { return silent; }

private:
    bool silent = false;
    std::optional<std::string> address; // the original value
};

} // namespace glidemap
