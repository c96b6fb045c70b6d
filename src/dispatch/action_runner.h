// Carries out what a binding says: types a shortcut, locks the screen, shows all windows, launches
// an application.
//
// Thread:  the main thread.
// Owner:   the program makes one for the dispatcher.
// Errors:  silent; what cannot be carried out is skipped. Whether the system can lock is asked once,
//          at the first lock.
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
        std::shared_ptr<const UserSession> session = nullptr; // null: never locked
    };

    explicit ActionRunner(Ports given);
    ActionRunner(const ActionRunner&) = delete;
    ActionRunner& operator=(const ActionRunner&) = delete;

    // While the session is locked, only a further lock, and that without typing.
    void perform(const BindingAction& action);

    // Brings it forward if it runs. An identifier that no application has launches nothing.
    void launchApp(const std::string& bundleID);

private:
    void lockScreen();

    Ports ports;
    std::optional<bool> canLock; // unknown before the first lock
};

} // namespace glidemap
