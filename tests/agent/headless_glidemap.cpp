#include "headless_glidemap.h"

#include "core/lang.h"
#include "platform/linux/desktop/user_folders.h"
#include "platform/qt/qt_user_defaults.h"
#include "recognition/touch_engine.h"

#include <utility>

namespace glidemap::test {

HeadlessGlidemap::HeadlessGlidemap() : defaults(std::make_shared<QtUserDefaults>()) {
    Lang::configureShared(defaults);
    store = std::make_shared<BindingStore>(userDataFolder);
    services.onDevicesChanged = [this] {
        if (runtime != nullptr) {
            runtime->accessMayHaveChanged();
        }
    };
}

// Stops all callbacks before the members that they use are destroyed.
HeadlessGlidemap::~HeadlessGlidemap() {
    stop();
}

void HeadlessGlidemap::start(Prompt prompt, std::function<void(const GestureLogEntry&)> logged) {
    notifyLogged = std::move(logged);
    if (prompt == Prompt::askUser) {
        services.trust->isTrustedWithPrompt();
    }
    makeDispatcher();
    runtime = std::make_unique<GestureRuntime>(GestureRuntime::Parts{
        TouchEngine::shared(), store, dispatcher, services.clickTap, services.session});
    runtime->start();
}

void HeadlessGlidemap::stop() {
    if (runtime != nullptr) {
        runtime->stop();
    }
}

void HeadlessGlidemap::makeDispatcher() {
    dispatcher = GestureDispatcher::create(
        {.store = store,
         .defaults = defaults,
         .mainQueue = queue,
         .workspace = services.workspace,
         .actionRunner = std::make_shared<ActionRunner>(ActionRunner::Ports{
             services.workspace, services.keyboard, services.screenLock, services.session}),
         .session = services.session});
    toLog = dispatcher->changes().subscribe({}, [this] { notifyNewEntry(); });
}

// The dispatcher also reports changes of the master switch, which add no entry. It reports each new
// entry separately, so only the newest one must be checked.
void HeadlessGlidemap::notifyNewEntry() {
    const auto& events = dispatcher->recentEvents();
    if (!events.empty() && events.front().id != lastNotified) {
        lastNotified = events.front().id;
        notifyLogged(events.front());
    }
}

} // namespace glidemap::test
