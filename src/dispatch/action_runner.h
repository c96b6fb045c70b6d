// Performs the action of a binding: types a shortcut, locks the screen, shows all windows, launches
// an application.
//
// Thread:  the main thread.
// Owner:   the program creates one for the dispatcher.
// Errors:  none are reported; an action that cannot be performed is skipped. The first lock action
//          checks whether the system can lock the screen.
#pragma once

#include "bindings/binding_action.h"
#include "dispatch/key_event_poster.h"
#include "dispatch/screen_lock.h"
#include "dispatch/user_session.h"
#include "dispatch/workspace.h"

#include <memory>
#include <optional>
#include <string>

namespace glidemap {

class ActionRunner {
public:
    struct Ports {
        std::shared_ptr<Workspace> workspace;
        std::shared_ptr<KeyEventPoster> keyEvents;
        std::shared_ptr<ScreenLock> screenLock;
        std::shared_ptr<const UserSession> session = nullptr; // null: the session is never locked
    };

    explicit ActionRunner(Ports ports);
    ActionRunner(const ActionRunner&) = delete;
    ActionRunner& operator=(const ActionRunner&) = delete;

    // While the session is locked, only the lock action runs, and it types no shortcut.
    void perform(const BindingAction& action);

    // Launches the application, or activates it if it is running. Does nothing if no application
    // has this identifier.
    void launchApp(const std::string& bundleID);

private:
    void lockScreen();

    Ports ports;
    std::optional<bool> canLock; // unknown before the first lock
};

} // namespace glidemap
