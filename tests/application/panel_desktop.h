// A desktop with a real panel, which shows status items from the message bus, and a real settings
// portal, which provides the user's appearance settings.
//
// Units:   pixels from the top left corner of the desktop.
// Thread:  one.
// Owner:   a test.
// Errors:  a program of the desktop that does not start in time fails the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "picture.h"
#include "status_host.h"
#include "ui/theme/appearance_settings.h"

#include <memory>
#include <string>
#include <vector>

namespace glidemap::test {

class PanelDesktop {
public:
    PanelDesktop() = default;
    PanelDesktop(const PanelDesktop&) = delete;
    PanelDesktop& operator=(const PanelDesktop&) = delete;
    virtual ~PanelDesktop() = default;

    // The environment of the desktop's programs. HOME and the XDG folders are the desktop's own,
    // not the user's.
    virtual Environment environment() const = 0;

    // Starts the panel and waits until it accepts items.
    virtual void startPanel() = 0;

    // Simulates a crash of the panel.
    virtual void killPanel() = 0;

    virtual Picture panel() const = 0;
    virtual Picture screen() const = 0;

    // Starts this desktop's portal. Must be called before choose().
    virtual void startPortal() = 0;
    virtual void choose(ColorScheme scheme) const = 0;

    // Returns the items registered with the panel's watcher.
    std::vector<StatusHost::Item> items() const;

    // Returns a command that runs `words` in this desktop's environment and writes a log file.
    // `more` is added to the environment.
    Program::Command command(std::vector<std::string> words, const Environment& more = {}) const;
    std::unique_ptr<Program> start(std::vector<std::string> words,
                                   const Environment& more = {}) const;

    // Runs a program, waits until it exits, and expects success.
    void run(std::vector<std::string> words, const Environment& more = {}) const;

    RuntimeFolder home;
    PrivateBus session;
    PrivateBus system;

protected:
    bool watcherHasHost() const;
};

} // namespace glidemap::test
