// A desktop whose real panel shows the status items of programs that register over the message bus, and
// whose real portal tells programs how the user wants them to look.
//
// Units:   pixels from the top left corner of the desktop.
// Thread:  one.
// Owner:   a test.
// Errors:  a program of the desktop that is not ready in time is a failure of the test.
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

namespace glidemap::application {

class PanelDesktop {
public:
    PanelDesktop() = default;
    PanelDesktop(const PanelDesktop&) = delete;
    PanelDesktop& operator=(const PanelDesktop&) = delete;
    virtual ~PanelDesktop() = default;

    // The environment of the desktop's programs. HOME and the XDG folders are the desktop's.
    virtual desktops::Environment environment() const = 0;

    // Waits until the panel takes items.
    virtual void startPanel() = 0;

    // As when the panel crashes.
    virtual void killPanel() = 0;

    virtual Picture panel() const = 0;
    virtual Picture screen() const = 0;

    // Starts the portal of this desktop. `choose` works from then on.
    virtual void startPortal() = 0;
    virtual void choose(ColorScheme scheme) const = 0;

    // The items that are registered with the panel's watcher.
    std::vector<StatusHost::Item> items() const;

    // A program of the desktop, which starts and need not end.
    desktops::Program::Command command(std::vector<std::string> words,
                                       const desktops::Environment& more = {}) const;
    std::unique_ptr<desktops::Program> start(std::vector<std::string> words,
                                             const desktops::Environment& more = {}) const;

    // Runs a program until it has ended well.
    void run(std::vector<std::string> words, const desktops::Environment& more = {}) const;

    desktops::RuntimeFolder home;
    desktops::PrivateBus session;
    desktops::PrivateBus system;

protected:
    bool watcherHasHost() const;
};

} // namespace glidemap::application
