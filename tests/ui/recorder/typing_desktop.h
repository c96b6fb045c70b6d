// A desktop without a screen, with a keyboard on which a test types. Its programs receive the keys
// as if a real keyboard had sent them.
//
// Units:   the kernel's key codes.
// Thread:  one.
// Owner:   a test.
// Errors:  a desktop that does not start in time fails the test.
#pragma once

#include "desktops/program.h"

#include <cstdint>

namespace glidemap::test {

class TypingDesktop {
public:
    TypingDesktop() = default;
    TypingDesktop(const TypingDesktop&) = delete;
    TypingDesktop& operator=(const TypingDesktop&) = delete;
    virtual ~TypingDesktop() = default;

    // The environment of the desktop's programs.
    virtual Environment environment() const = 0;

    virtual void key(std::uint16_t kernelCode, bool down) = 0;
};

// Adds the variable that makes Qt use Wayland.
inline Environment forToolkit(Environment desktop) {
    desktop["QT_QPA_PLATFORM"] = "wayland";
    return desktop;
}

} // namespace glidemap::test
