// GNOME Shell, with the keyboard of its remote desktop service.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a shell that does not start in time, or has no such service, fails the test.
#pragma once

#include "desktops/gnome_shell.h"
#include "typing_desktop.h"

#include <string>

namespace glidemap::test {

class TypingGnomeShell : public TypingDesktop {
public:
    static constexpr const char* name = "GnomeShell";

    // Returns an empty string if the shell can run, otherwise the reason.
    static std::string whyNot() {
        const auto missing = GnomeShell::missing();
        return missing ? *missing + " is not installed" : "";
    }

    TypingGnomeShell();

    Environment environment() const override { return forToolkit(shell.environment()); }
    void key(std::uint16_t kernelCode, bool down) override;

    const GnomeShell& desktop() const { return shell; }

private:
    GnomeShell shell{GnomeShell::Eval::allowed};
    std::string session; // the path of the remote desktop session
};

} // namespace glidemap::test
