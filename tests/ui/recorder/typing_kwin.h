// KWin, with its emulated keyboard. KWin's keymap is the US layout.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a KWin that does not start in time, or has no emulated keyboard, fails the test.
#pragma once

#include "desktops/kwin.h"
#include "typing_desktop.h"

#include <memory>
#include <string>

namespace glidemap::test {

class TypingKWin : public TypingDesktop {
public:
    static constexpr const char* name = "KWin";

    // Returns an empty string if KWin can run, otherwise the reason.
    static std::string whyNot() { return KWin::isInstalled() ? "" : "KWin is not installed"; }

    TypingKWin();
    ~TypingKWin() override;

    Environment environment() const override { return forToolkit(kwin.environment()); }
    void key(std::uint16_t kernelCode, bool down) override;

private:
    class Keyboard;

    KWin kwin;
    std::unique_ptr<Keyboard> keyboard;
};

} // namespace glidemap::test
