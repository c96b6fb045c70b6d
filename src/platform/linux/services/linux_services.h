// The program's services on Linux, made and tied to each other: the one place that knows which
// class stands behind each port. Both the program and what runs it without an interface start here.
//
//   desktop thread ◀─ workspace, overview, screen lock, held modifiers
//   access prompt ─┐
//   device watch ──┴▶ onDevicesChanged ─▶ what had no access, or no touchpad, tries once more
//   user session ───▶ no keyboard while another session is in front
//
// Thread:  the main thread, within the application object's life.
// Owner:   the program makes one, before and for longer than whatever uses it: some of it lives on
//          the desktop thread, which goes with it.
// Errors:  as each service has them.
#pragma once

#include "core/main_queue.h"
#include "core/observable.h"
#include "dispatch/accessibility_trust.h"
#include "dispatch/click_tap.h"
#include "dispatch/screen_lock.h"
#include "dispatch/user_session.h"
#include "platform/linux/access/access_prompt.h"
#include "platform/linux/access/input_device_watch.h"
#include "platform/linux/appearance/portal_appearance.h"
#include "platform/linux/applications/linux_workspace.h"
#include "platform/linux/keyboard/uinput_keyboard.h"
#include "platform/linux/session/linux_overview.h"
#include "platform/linux/windows/desktop_thread.h"

#include <functional>
#include <memory>

namespace glidemap {

class LinuxServices {
public:
    // Makes the shared touch engine and device manager, too: there is one of each in a process.
    explicit LinuxServices(const std::shared_ptr<MainQueue>& mainQueue);
    LinuxServices(const LinuxServices&) = delete;
    LinuxServices& operator=(const LinuxServices&) = delete;

    // Called whenever touchpads may have come or access may have been given, and the keyboard has
    // tried once more.
    std::function<void()> onDevicesChanged;

    AccessPrompt& prompt() { return accessPrompt; }

private:
    void followSession();
    void lookAgain();

    DesktopThread desktop; // everything that lives on it goes before it
    AccessPrompt accessPrompt;
    InputDeviceWatch devices; // before the first attempt to type or to read
    LinuxOverview overview;
    PortalAppearance portal;

public:
    const std::shared_ptr<AppearanceSettings> appearance;
    const std::shared_ptr<AccessibilityTrust> trust;
    const std::shared_ptr<LinuxWorkspace> workspace;
    const std::shared_ptr<ScreenLock> screenLock;
    const std::shared_ptr<UserSession> session;
    const std::shared_ptr<ClickTap> clickTap;
    const std::shared_ptr<UinputKeyboard> keyboard;

private:
    Subscription toSession;
};

} // namespace glidemap
