// Queries and installs the desktop helper for GNOME on Wayland, an extension of GNOME Shell.
//
// The shell may reply slowly or never. Therefore a separate thread waits for its replies, one query
// at a time.
//
// Thread:  see DesktopHelper.
// Owner:   the program. The destructor waits for a pending query, for a few seconds if the shell is
//          stuck.
// Errors:  lastError() returns the shell's error text.
#pragma once

#include "core/main_queue.h"
#include "platform/linux/windows/gnome/gnome_extension.h"
#include "ui/settings/desktop_helper.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace glidemap {

class GnomeDesktopHelper : public DesktopHelper {
public:
    // Functions that query and install the extension. Both block, and are called on a separate
    // thread.
    struct Shell {
        std::function<GnomeExtension::Status()> status;
        std::function<std::optional<std::string>()> install;
    };

    static Shell runningShell();

    // Returns null on desktops that need no helper.
    static std::shared_ptr<DesktopHelper> ofThisSession(std::shared_ptr<MainQueue> queue);

    GnomeDesktopHelper(Shell asked, std::shared_ptr<MainQueue> queue);
    ~GnomeDesktopHelper() override;

    State state() const override { return _state; }
    std::optional<std::string> lastError() const override { return _lastError; }
    void install() override;
    Observable& changes() override { return observers; }

private:
    void ask(std::function<GnomeExtension::Status()> question);
    void become(State state, std::optional<std::string> error);

    Shell shell;
    std::shared_ptr<MainQueue> mainQueue;
    State _state = State::notNeeded; // until the shell has replied
    std::optional<std::string> _lastError;
    Observable observers;
    std::thread worker;
    std::shared_ptr<GnomeDesktopHelper*> life; // pending replies hold weak references
};

} // namespace glidemap
