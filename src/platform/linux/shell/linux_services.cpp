#include "platform/linux/shell/linux_services.h"

#include "platform/common/shared_engine.h"
#include "platform/linux/access/grant_prompt.h"
#include "platform/linux/access/input_trust.h"
#include "platform/linux/access/linux_click_tap.h"
#include "platform/linux/access/udev_input_nodes.h"
#include "platform/linux/keyboard/session_held_modifiers.h"
#include "platform/linux/session/linux_screen_lock.h"
#include "platform/linux/session/linux_user_session.h"
#include "platform/linux/thread_setup.h"
#include "platform/linux/touch_driver_platform.h"
#include "platform/linux/windows/desktop_backends.h"

namespace glidemap {

LinuxServices::LinuxServices(const std::shared_ptr<MainQueue>& mainQueue)
    : accessPrompt(mainQueue, grantAccessCommand()),
      devices(desktop, mainQueue, [this] { retryServices(); }), overview(desktop),
      portal(desktop, *mainQueue), appearance(portal.settings()),
      trust(std::make_shared<InputTrust>(std::make_unique<UdevInputNodes>(),
                                         [this] { accessPrompt.ask(); })),
      workspace(std::make_shared<LinuxWorkspace>(
          desktop, desktopBackends(desktop),
          LinuxWorkspace::Panels{.missionControl = [this] { overview.toggle(); },
                                 .hasMissionControl = [this] { return overview.mayExist(); },
                                 .accessibilitySettings =
                                     [this] {
                                         accessPrompt.ask();
                                     }})),
      screenLock(std::make_shared<LinuxScreenLock>(desktop, *mainQueue)),
      session(std::make_shared<LinuxUserSession>(desktop, mainQueue)),
      clickTap(std::make_shared<LinuxClickTap>(
          makeSharedEngine(touchDriverPlatform(), setUpResponsiveThread))),
      keyboard(std::make_shared<UinputKeyboard>(heldModifiersOfThisSession(desktop))),
      toSession(session->changes().subscribe({}, [this] { followSession(); })) {
    overview.mayExist(); // starts the first lookup
    // The keyboard exists already, because a desktop takes a moment to detect a new keyboard. This
    // call removes it if another session is in front.
    followSession();
    accessPrompt.onAnswer = [this] {
        retryServices();
    };
}

void LinuxServices::followSession() {
    if (session->isActive()) {
        keyboard->plugIn();
    } else {
        keyboard->unplug();
    }
}

void LinuxServices::retryServices() {
    followSession();
    if (onDevicesChanged) {
        onDevicesChanged();
    }
}

} // namespace glidemap
