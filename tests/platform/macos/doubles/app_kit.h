// Controls the fakes of AppKit, and plays key presses.
#pragma once

#include <cstddef>
#include <cstdint>

namespace glidemap::test {

struct AppKit {
    bool givesEventMonitors = true;
};

// Returns the state of the fakes. The fixture's set-up resets it.
AppKit& appKit();

struct KeyDown {
    std::uint16_t keyCode;
    std::uint64_t flags = 0;
    bool repeats = false;
};

// Names the receiver of the press. Monitors receive it first, in the order of their creation.
enum class Receiver { windows, monitor };
Receiver play(const KeyDown& press);

std::size_t installedMonitors();

} // namespace glidemap::test
