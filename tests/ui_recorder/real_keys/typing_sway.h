// A Wayland compositor, typed on with a virtual keyboard that has the keys of a real one: it brings
// the keymap of an ordinary keyboard, so that its codes are the kernel's.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a compositor that is not ready in time, or lets nobody type, is a failure of the test.
#pragma once

#include "desktops/sway.h"
#include "typing_desktop.h"

#include <memory>

namespace glidemap::desktops {

class TypingSway : public TypingDesktop {
public:
    // Empty, or why there can be none here.
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

} // namespace glidemap::desktops
