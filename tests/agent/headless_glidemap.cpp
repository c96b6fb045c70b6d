#include "headless_glidemap.h"

#include "core/lang.h"
#include "platform/linux/session/user_folders.h"
#include "platform/qt/qt_user_defaults.h"
#include "recognition/touch_engine.h"

#include <utility>

namespace glidemap::agent {

HeadlessGlidemap::HeadlessGlidemap() : defaults(std::make_shared<QtUserDefaults>()) {
    Lang::configureShared(defaults);
    store = std::make_shared<BindingStore>(userDataFolder);
    clickMonitor = std::make_shared<ClickMonitor>(
        services.clickTap, [] { return TouchEngine::shared()->touchingCount(); });
    input = std::make_unique<GestureInput>(TouchEngine::shared(), *clickMonitor, services.session);
    services.onDevicesChanged = [this] {
        input->devicesMayHaveChanged();
    };
}

// Nobody may call in while what they call is going.
HeadlessGlidemap::~HeadlessGlidemap() {
    stop();
}

void HeadlessGlidemap::start(Prompt prompt, std::function<void(const GestureLogEntry&)> logged) {
    tellLogged = std::move(logged);
    if (prompt == Prompt::askUser) {
        services.trust->isTrustedWithPrompt();
    }
    makeDispatcher();
    connectTouches();
    connectClicks();
    input->start();
}

void HeadlessGlidemap::stop() {
    input->stop();
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
    toLog = dispatcher->changes().subscribe({}, [this] { tellNewEntry(); });
}

void HeadlessGlidemap::connectTouches() {
    const auto& engine = TouchEngine::shared();
    engine->onGesture = [weak = std::weak_ptr(dispatcher)](GestureType gesture) {
        if (const auto held = weak.lock()) {
            held->handle(gesture, true);
        }
    };
    engine->sessionRecognizer().doubleTapBindingExists = [weak = std::weak_ptr(store)](int count) {
        const auto held = weak.lock();
        return held != nullptr && held->doubleTapBindingExists(count);
    };
}

void HeadlessGlidemap::connectClicks() {
    clickMonitor->onClickGesture = [weak = std::weak_ptr(dispatcher)](GestureType gesture) {
        const auto held = weak.lock();
        return held != nullptr && held->handleClickGesture(gesture);
    };
    clickDemand = std::make_unique<ClickDemand>(dispatcher, services.clickTap);
}

// The master switch is announced in the same way, and entries come one at a time.
void HeadlessGlidemap::tellNewEntry() {
    const auto& events = dispatcher->recentEvents();
    if (!events.empty() && events.front().id != lastTold) {
        lastTold = events.front().id;
        tellLogged(events.front());
    }
}

} // namespace glidemap::agent
