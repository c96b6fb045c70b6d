#include "dispatch/action_runner.h"

#include "core/log.h"

#include <array>
#include <utility>
#include <variant>

namespace glidemap {

namespace {

// Control-Command-Q, the fallback if the system has no function to lock the screen.
constexpr KeyShortcut lockShortcut{12, modifier::control | modifier::command};

bool isLocked(const UserSession* session) {
    return session != nullptr && session->isLocked();
}

// The modifiers are flags of the key's events. Modifier keys get no events of their own.
void type(const KeyShortcut& shortcut, KeyEventPoster& keyEvents) {
    const std::array events = {KeyEvent{shortcut.keyCode, true, shortcut.modifiers},
                               KeyEvent{shortcut.keyCode, false, shortcut.modifiers}};
    keyEvents.post(events);
}

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace

ActionRunner::ActionRunner(Ports ports) : ports(std::move(ports)) {}

void ActionRunner::perform(const BindingAction& action) {
    if (isLocked(ports.session.get()) && !std::holds_alternative<LockScreen>(action)) {
        logLine("actions", "dropped: the session is locked");
        return;
    }
    logLine("actions", "runs ", kindOf(action));
    std::visit(
        Overloaded{
            [this](const KeyShortcut& shortcut) { type(shortcut, *ports.keyEvents); },
            [this](const LockScreen& /*all of it*/) { lockScreen(); },
            [this](const MissionControl& /*all of it*/) { ports.workspace->openMissionControl(); },
            [this](const LaunchApp& launch) { launchApp(launch.bundleID); },
        },
        action);
}

void ActionRunner::launchApp(const std::string& bundleID) {
    if (const auto url = ports.workspace->urlForApplication(bundleID)) {
        logLine("actions", "opens ", *url);
        ports.workspace->openApplication(*url);
    } else {
        logLine("actions", "dropped: no application ", bundleID, " is installed");
    }
}

// `typeShortcut` holds the ports weakly, because the system may report a refusal after this runner
// is destroyed.
void ActionRunner::lockScreen() {
    if (!canLock) {
        canLock = ports.screenLock->find();
    }
    const auto typeShortcut = [weakly = std::weak_ptr(ports.keyEvents),
                               weakSession = std::weak_ptr(ports.session)] {
        const auto keyEvents = weakly.lock();
        const auto session = weakSession.lock();
        if (keyEvents != nullptr && !isLocked(session.get())) {
            logLine("actions", "no service can lock the screen: typing the lock shortcut");
            type(lockShortcut, *keyEvents);
        }
    };
    if (*canLock) {
        ports.screenLock->lock(typeShortcut);
    } else {
        typeShortcut();
    }
}

} // namespace glidemap
