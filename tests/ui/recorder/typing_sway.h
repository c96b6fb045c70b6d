// A Wayland compositor with a virtual keyboard, which closes a window when Alt+F4 is pressed. The
// keyboard has the evdev keymap with the US layout, so its key codes are the kernel's.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a compositor that does not start in time, or has no virtual keyboard protocol, fails the
//          test.
#pragma once

#include "desktops/sway.h"
#include "typing_desktop.h"

#include <memory>

namespace glidemap::test {

class TypingSway : public TypingDesktop {
public:
    static constexpr const char* name = "Sway";

    // Returns an empty string if sway can run, otherwise the reason.
    static std::string whyNot() { return isInstalled("sway") ? "" : "sway is not installed"; }

    TypingSway();
    ~TypingSway() override;

    Environment environment() const override;
    void key(std::uint16_t kernelCode, bool down) override;

private:
    class Keyboard;

    Sway sway;
    std::unique_ptr<Keyboard> keyboard;
};

} // namespace glidemap::test
