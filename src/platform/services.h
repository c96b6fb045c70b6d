// The services of the operating system that the program runs on: one implementation of each port,
// and the functions that the program calls before they exist. Each system implements these
// functions once, and the build links one implementation. No other code in the program names a
// system.
//
// Thread:  the main thread.
// Owner:   the program. It makes the services once, while the application object exists, and
//          destroys them after all users of their ports.
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

namespace glidemap::platform {

// The functions from here to `Services` need no application object.

// Reads the activation data that the launcher has put into the environment, and removes it from
// there. Call it before any other thread exists: another thread may read the environment.
SingleInstance::Request takeActivationToken();

// A private folder of this user. It holds the lock of the single running instance.
std::filesystem::path runtimeFolder();

// Whether a display is available. Qt aborts a program that connects without one.
bool hasDisplay();

// Whether to set window icons. False on macOS, where Qt would replace the bundle's Dock icon.
bool windowsHaveIcons();

// Returns the diagnosis page for a bug report. The caller must exit without running exit handlers:
// a thread may still be waiting for a bus.
std::string diagnosis(const std::string& version);

// Hides a message bus that does not respond from Qt, which would wait for it. Call it before
// startFontScan(). The returned function restores the environment; call it after the scan.
std::function<void()> hideSilentBus();

// Starts reading the font list on its own thread. The returned function waits until the list has
// been read; call it before measuring the first text.
std::function<void()> startFontScan();

// The functions from here on need the application object.

struct Services {
    // Keeps the foundation of the services alive. It is the first member, so it is destroyed last.
    std::shared_ptr<void> foundation;

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

    // Returns the folder for the bindings, which may not exist yet.
    std::function<std::filesystem::path()> dataFolder;

    // Uses the activation data of another process that asks this one to show its window.
    std::function<void(const SingleInstance::Request&)> useActivationToken;

    // The icon's name in the installed icon theme, for status bars that draw the icon themselves.
    const char* installedIcon = "";
    const char* installedIconOff = ""; // while gestures are switched off
};

// The system's notifications to the program. The services call these functions on the main thread,
// possibly before makeServices() returns.
struct SystemEvents {
    // A touchpad may have appeared, or access may have been granted. The keyboard has already
    // retried.
    std::function<void()> devicesMayHaveChanged;

    // The user has started the running program again.
    std::function<void()> reopened;
};

// Also creates the shared touch engine and device manager. The first window uses the activation
// data.
Services makeServices(const std::shared_ptr<MainQueue>& mainQueue,
                      const SingleInstance::Request& activation, SystemEvents events);

// The user's stored settings. Several instances may be open at a time.
std::shared_ptr<UserDefaults> makeUserDefaults();

// The services of an alert that is shown without the rest of the program. The settings may outlive
// the foundation, which updates them; destroy the foundation before the queue.
struct AlertServices {
    std::shared_ptr<void> foundation;
    std::shared_ptr<AppearanceSettings> appearance;
};
AlertServices makeAlertServices(MainQueue& mainQueue, const SingleInstance::Request& activation);

} // namespace glidemap::platform
