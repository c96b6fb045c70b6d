// Keeps the toolkit from waiting for a session bus that does not respond: it connects on the main
// thread, and the D-Bus library waits for half a minute.
//
// The bus is tried first. If it is silent, the toolkit finds no bus for the whole run of the program: no
// status item on the bus and no screen reader. Services of our own still find it if it recovers.
//
// Thread:  the main thread, while no other thread changes the environment. The constructor waits for
//          the bus, for at most `patience`.
// Owner:   the program's start: made before the application object, finish() called right after it.
// Errors:  none.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace glidemap {

class ToolkitBus {
public:
    // A working bus responds within a millisecond; at a busy login it may take some hundred.
    static constexpr std::chrono::milliseconds patience{1000};

    ToolkitBus();
    ToolkitBus(const ToolkitBus&) = delete;
    ToolkitBus& operator=(const ToolkitBus&) = delete;

    // Puts the environment back, for services of our own and for launched programs.
    void finish() const;

    bool isSilent() const { return silent; }

private:
    bool silent = false;
    std::optional<std::string> address; // as the environment had it
};

} // namespace glidemap
