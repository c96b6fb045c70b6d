#include "headless_glidemap.h"

#include "core/lang.h"
#include "input/multitouch_device_manager.h"
#include "platform/common/steady_uptime_clock.h"
#include "platform/common/threaded_delayed_work.h"
#include "platform/common/threaded_serial_queue.h"
#include "platform/linux/access/grant_prompt.h"
#include "platform/linux/access/input_trust.h"
#include "platform/linux/access/udev_input_nodes.h"
#include "platform/linux/applications/linux_workspace.h"
#include "platform/linux/clicks/linux_click_tap.h"
#include "platform/linux/keyboard/uinput_keyboard.h"
#include "platform/linux/keyboard/x11_held_modifiers.h"
#include "platform/linux/session/linux_overview.h"
#include "platform/linux/session/linux_screen_lock.h"
#include "platform/linux/session/user_folders.h"
#include "platform/linux/thread_setup.h"
#include "platform/linux/touch_driver_platform.h"
#include "platform/linux/windows/desktop_backends.h"
#include "platform/qt/qt_user_defaults.h"
#include "recognition/touch_engine.h"

#include <utility>

namespace glidemap::agent {

namespace {

TouchEngine::Ports enginePorts() {
    return {std::make_shared<SteadyUptimeClock>(), std::make_shared<ThreadedSerialQueue>([] {
                setUpResponsiveThread(TouchEngine::queueLabel);
            }),
            std::make_shared<ThreadedDelayedWork>([] { setUpResponsiveThread("delayed work"); }),
            &MultitouchDeviceManager::shared()};
}

} // namespace

HeadlessGlidemap::HeadlessGlidemap() : defaults(std::make_shared<QtUserDefaults>()) {
    Lang::configureShared(defaults);
    MultitouchDeviceManager::configureShared(touchDriverPlatform());
    TouchEngine::configureShared(enginePorts);

    store = std::make_shared<BindingStore>(userDataFolder);
    clickTap = std::make_shared<LinuxClickTap>(MultitouchDeviceManager::shared());
    clickMonitor = std::make_shared<ClickMonitor>(
        clickTap, [] { return TouchEngine::shared()->touchingCount(); });
    // Before anybody types: a desktop takes a moment to notice a keyboard.
    keyboard = std::make_shared<UinputKeyboard>(heldModifiersOfThisSession(desktop));
    keyboard->plugIn();
}

// Nobody may call in while what they call is going.
HeadlessGlidemap::~HeadlessGlidemap() {
    stop();
}

void HeadlessGlidemap::start(Prompt prompt, std::function<void(const GestureLogEntry&)> logged) {
    tellLogged = std::move(logged);
    askForAccess(prompt);
    makeDispatcher();
    startTouches();
    startClicks();
}

void HeadlessGlidemap::stop() {
    TouchEngine::shared()->stop();
    if (clickMonitor != nullptr) {
        clickMonitor->stop();
    }
}

// Whatever the user has answered, what could not make its device tries once more.
void HeadlessGlidemap::askForAccess(Prompt prompt) {
    const auto granted = [weakQueue = std::weak_ptr(queue), weakKeyboard = std::weak_ptr(keyboard),
                          weakMonitor = std::weak_ptr(clickMonitor)] {
        const auto tryAgain = [weakKeyboard, weakMonitor] {
            if (const auto held = weakKeyboard.lock()) {
                held->plugIn();
            }
            if (const auto held = weakMonitor.lock()) {
                held->start();
            }
        };
        if (const auto mainQueue = weakQueue.lock()) {
            mainQueue->submit(tryAgain);
        }
    };
    InputTrust trust(std::make_unique<UdevInputNodes>(),
                     [granted] { startGrantPrompt(grantAccessCommand(), granted); });
    if (prompt == Prompt::askUser) {
        trust.isTrustedWithPrompt();
    }
}

void HeadlessGlidemap::makeDispatcher() {
    const auto overview = std::make_shared<LinuxOverview>(desktop);
    const auto workspace = std::make_shared<LinuxWorkspace>(desktop, desktopBackends(desktop),
                                                            [overview] { overview->toggle(); });
    const auto screenLock = std::make_shared<LinuxScreenLock>(desktop, *queue);
    dispatcher =
        GestureDispatcher::create({.store = store,
                                   .defaults = defaults,
                                   .mainQueue = queue,
                                   .workspace = workspace,
                                   .actionRunner = std::make_shared<ActionRunner>(
                                       ActionRunner::Ports{workspace, keyboard, screenLock})});
    toLog = dispatcher->changes().subscribe({}, [this] { tellNewEntry(); });
}

void HeadlessGlidemap::startTouches() {
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
    engine->start();
}

void HeadlessGlidemap::startClicks() {
    clickMonitor->onClickGesture = [weak = std::weak_ptr(dispatcher)](GestureType gesture) {
        const auto held = weak.lock();
        return held != nullptr && held->handleClickGesture(gesture);
    };
    clickDemand = std::make_unique<ClickDemand>(dispatcher, clickTap);
    clickMonitor->start();
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
