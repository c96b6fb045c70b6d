// Creates the concrete services on Linux and connects them, for the program and for tools without
// an interface.
//
//   desktop thread ◀─ workspace, overview, screen lock, held modifiers
//   access prompt ─┐
//   device watch ──┴▶ onDevicesChanged ─▶ services that lack access or a touchpad try again
//   user session ───▶ no keyboard while another session is in front
//
// Thread:  the main thread, while the application object exists.
// Owner:   the program. It creates one instance, and destroys it after all users, because some
//          services live on its desktop thread.
// Errors:  as documented for each service.
#pragma once

#include "core/main_queue.h"
#include "core/observable.h"
#include "dispatch/accessibility_trust.h"
#include "dispatch/click_tap.h"
#include "dispatch/screen_lock.h"
#include "dispatch/user_session.h"
#include "platform/linux/access/access_prompt.h"
#include "platform/linux/access/input_device_watch.h"
#include "platform/linux/applications/linux_workspace.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/uinput_keyboard.h"
#include "platform/linux/session/linux_overview.h"
#include "platform/linux/shell/portal_appearance.h"

#include <functional>
#include <memory>

namespace glidemap {

class LinuxServices {
public:
    // Also creates the shared touch engine and device manager. Must be called at most once per
    // process.
    explicit LinuxServices(const std::shared_ptr<MainQueue>& mainQueue);
    LinuxServices(const LinuxServices&) = delete;
    LinuxServices& operator=(const LinuxServices&) = delete;

    // Called when a touchpad may have been connected, or access may have been granted. If the
    // session is active, the keyboard has already tried again to open its device.
    std::function<void()> onDevicesChanged;

    AccessPrompt& prompt() { return accessPrompt; }

private:
    void followSession();
    void retryServices();

    DesktopThread desktop; // outlives all services that live on its thread
    AccessPrompt accessPrompt;
    // The watch starts before the first attempt to type or read, so that no change is missed.
    InputDeviceWatch devices;
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
