// An isolated desktop: a screen, keyboard, mouse and touchpad, message buses, and the accessibility
// bus. The program runs on it as a separate process with its own folders. Tests observe it like a
// user, a panel or a screen reader.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a service that does not start in time fails the test.
#pragma once

#include "accessibility.h"
#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "fingers.h"
#include "hands.h"
#include "status_host.h"
#include "x_display.h"

#include <filesystem>
#include <memory>
#include <string>

namespace glidemap::test {

enum class Panel { present, absent };

class ApplicationStage {
public:
    static bool isInstalled();

    explicit ApplicationStage(Panel panel = Panel::present);
    ApplicationStage(const ApplicationStage&) = delete;
    ApplicationStage& operator=(const ApplicationStage&) = delete;

    Environment environment() const;
    Program::Command command() const;

    // This may be called while the program runs.
    void showPanel();

    std::filesystem::path folder() const { return home.path(); }
    std::filesystem::path bindingsFile() const;
    std::filesystem::path settingsFile() const;
    std::filesystem::path complaintsFile() const;

    RuntimeFolder home;
    PrivateBus session;
    PrivateBus system;
    XDisplay display;
    Hands hands;
    Fingers fingers;
    Accessibility accessibility;
    std::unique_ptr<StatusHost> panel;
};

} // namespace glidemap::test
