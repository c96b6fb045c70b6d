// What a test tells the doubles of AppKit to answer, and the key presses as it plays them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace glidemap::doubles {

struct AppKit {
    bool givesEventMonitors = true;
};

// Reset by every test's set-up.
AppKit& appKit();

struct KeyDown {
    std::uint16_t keyCode;
    std::uint64_t flags = 0;
    bool repeats = false;
};

// Who gets the press: the monitors are asked first, in the order of their making.
enum class Receiver { windows, monitor };
Receiver play(const KeyDown& press);

std::size_t installedMonitors();

} // namespace glidemap::doubles
