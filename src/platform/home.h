// Gives the program the services of the operating system it runs on: one implementation per port.
// Each platform has one subclass, and the build chooses which one to link. No other code in the
// program names a platform.
//
// Thread:  the main thread.
// Owner:   the program. It creates one instance while the application object exists, and destroys
//          it after all users of its ports.
// Errors:  as documented for each port.
#pragma once

#include "app/application_shell.h"
#include "app/login_item_service.h"
#include "app/status_bar.h"
#include "bindings/keyboard_kind.h"
#include "core/main_queue.h"
#include "core/user_defaults.h"
#include "dispatch/accessibility_trust.h"
#include "dispatch/click_tap.h"
#include "dispatch/key_event_poster.h"
#include "dispatch/screen_lock.h"
#include "dispatch/user_session.h"
#include "dispatch/workspace.h"
#include "platform/qt/single_instance.h"
#include "ui/recorder/key_presses.h"
#include "ui/settings/desktop_helper.h"
#include "ui/settings/system_notes.h"
#include "ui/settings/window_geometry_store.h"
#include "ui/theme/appearance_settings.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace glidemap {

class Home {
public:
    struct Ports {
        // The version to show to users; nullopt if unknown.
        std::optional<std::string> version;

        std::shared_ptr<AppearanceSettings> appearance;
        std::shared_ptr<ApplicationShell> shell;
        std::shared_ptr<StatusBar> statusBar;
        std::shared_ptr<AccessibilityTrust> trust;
        std::shared_ptr<Workspace> workspace;
        std::shared_ptr<ClickTap> clickTap;
        std::shared_ptr<KeyEventPoster> keyboard;
        std::shared_ptr<ScreenLock> screenLock;
        std::shared_ptr<UserSession> session = nullptr; // null without user switching
        std::shared_ptr<LoginItemService> loginItems;
        std::shared_ptr<KeyPresses> keyPresses;
        std::shared_ptr<WindowGeometryStore> windowGeometry;
        std::shared_ptr<DesktopHelper> desktopHelper; // null if the system needs no helper
        std::shared_ptr<SystemNotes> notes;           // null if there are no notes

        KeyboardKind keyboardKind = KeyboardKind::apple;

        // The folder for the bindings, which may not exist yet.
        std::function<std::filesystem::path()> dataFolder;

        // The icon's name in the installed icon theme, for status bars that draw the icon
        // themselves.
        const char* installedIcon = "";
        const char* installedIconOff = ""; // while gestures are switched off
    };

    // These functions need no application object.

    // A private folder of this user. It holds the lock of the single running instance.
    static std::filesystem::path runtimeFolder();

    // The activation data that shows the system that the user started the program.
    static SingleInstance::Request activationToken();

    // Whether a display is available. Qt aborts a program that connects without one.
    static bool hasDisplay();

    // Whether windows have icons. On other systems Qt would replace the bundle's icon in the Dock.
    static bool windowsHaveIcons();

    // Returns the diagnosis page for a bug report. The caller must exit without running exit
    // handlers: a thread may still be waiting for a bus.
    static std::string diagnosis(const std::string& version);

    // Starts slow work in the background. The returned function waits for that work to finish; call
    // it before measuring the first text.
    static std::function<void()> begin();

    // These functions need the application object.

    // The user's stored settings. Several instances may be open at a time.
    static std::shared_ptr<UserDefaults> userDefaults();

    // The appearance of an alert that is shown without the rest of the program. The settings may
    // outlive their source, which updates them; destroy the source before the queue.
    struct AppearanceAlone {
        std::shared_ptr<AppearanceSettings> settings;
        std::shared_ptr<void> source;
    };
    static AppearanceAlone appearanceAlone(MainQueue& mainQueue);

    // Also creates the shared touch engine and device manager.
    static std::unique_ptr<Home> make(const std::shared_ptr<MainQueue>& mainQueue);

    Home() = default;
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;
    virtual ~Home() = default;

    virtual const Ports& ports() const = 0;

    // Takes the activation data of another process that asks this one to show its window.
    virtual void takeActivationToken(const SingleInstance::Request& request) = 0;

    // Called when a touchpad may have appeared or access may have been granted. The keyboard has
    // already retried.
    std::function<void()> onDevicesChanged;

    // Called when the user starts the running program again and the system reports it.
    std::function<void()> onReopen;
};

} // namespace glidemap
