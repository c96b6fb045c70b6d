// The desktop helper of GNOME on Wayland: our extension of its shell.
//
// The shell may be slow to answer, or stuck; a thread of our own waits for it, one question at a
// time.
//
// Thread:  as the port says.
// Owner:   the program. Destroying it waits for a question that is under way, a few seconds if the
//          shell is stuck.
// Errors:  in the shell's words.
#pragma once

#include "core/main_queue.h"
#include "platform/linux/windows/gnome_extension.h"
#include "ui/settings/desktop_helper.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace glidemap {

class GnomeDesktopHelper : public DesktopHelper {
public:
    // How the extension is asked for and installed; both are called on a thread of ours and wait.
    struct Shell {
        std::function<GnomeExtension::Status()> status;
        std::function<std::optional<std::string>()> install;
    };

    static Shell runningShell();

    // Null where the desktop is another one, or tells by itself.
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
    State _state = State::notNeeded; // until the shell has told
    std::optional<std::string> _lastError;
    Observable observers;
    std::thread worker;
    std::shared_ptr<GnomeDesktopHelper*> life; // what an answer holds weakly
};

} // namespace glidemap
