// A desktop without a screen, with a keyboard that a test presses the keys of. Its programs get them
// as they get those of a real one.
//
// Units:   the kernel's key codes.
// Thread:  one.
// Owner:   a test.
// Errors:  a desktop that is not ready in time is a failure of the test.
#pragma once

#include "desktops/program.h"

#include <cstdint>

namespace glidemap::desktops {

class TypingDesktop {
public:
    TypingDesktop() = default;
    TypingDesktop(const TypingDesktop&) = delete;
    TypingDesktop& operator=(const TypingDesktop&) = delete;
    virtual ~TypingDesktop() = default;

    // What its programs have to know.
    virtual Environment environment() const = 0;

    virtual void key(std::uint16_t kernelCode, bool down) = 0;
};

} // namespace glidemap::desktops
