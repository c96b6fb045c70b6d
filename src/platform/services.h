// The services of the operating system: one implementation of each port, and the functions that the
// program calls before the services exist. Each platform implements these functions, and the build
// links one implementation. The code that calls these functions contains nothing specific to one
// platform.
//
// Thread:  the main thread.
// Owner:   the program. It creates the services once, while the application object exists, and
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

// The functions up to `Services` do not need the application object.

// Returns the activation data that the launcher has put into the environment, and removes it from
// the environment. Must be called before other threads exist, because they may read the
// environment.
SingleInstance::Request takeActivationToken();

// Returns the user's folder for the lock of the single running instance.
std::filesystem::path runtimeFolder();

// Whether a display is available. Without one, Qt would abort the program when it connects.
bool hasDisplay();

// Whether to set window icons. False on macOS, where Qt would replace the bundle's Dock icon.
bool windowsHaveIcons();

// Returns the diagnosis page for a bug report. Afterwards, the caller must exit without exit
// handlers, because a thread may still be waiting for a bus.
std::string diagnosis(const std::string& version);

// Hides an unresponsive message bus from Qt, because Qt would wait for it. Must be called before
// startFontScan(). The returned function restores the environment; call it after the scan.
std::function<void()> hideSilentBus();

// Starts reading the font list on a separate thread. The returned function waits for that thread;
// call it before measuring the first text.
std::function<void()> startFontScan();

// The functions below need the application object.

struct Services {
    // Keeps objects alive that the services use. This is the first member, so it is destroyed last.
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
    std::shared_ptr<UserSession> session = nullptr; // null on platforms without user switching
    std::shared_ptr<LoginItemService> loginItems;
    std::shared_ptr<KeyPresses> keyPresses;
    std::shared_ptr<WindowGeometryStore> windowGeometry;
    std::shared_ptr<DesktopHelper> desktopHelper; // null if the system needs no helper
    std::shared_ptr<SystemNotes> notes;           // null if the platform provides no notes

    KeyboardKind keyboardKind = KeyboardKind::apple;

    // Returns the folder for the bindings. The folder may still be missing.
    std::function<std::filesystem::path()> dataFolder;

    // Applies the activation data of another process, which sent it with a request to show the
    // window.
    std::function<void(const SingleInstance::Request&)> useActivationToken;

    // The icon's name in the installed icon theme, for status bars that draw the icon themselves.
    const char* installedIcon = "";
    const char* installedIconOff = ""; // while gestures are switched off
};

// Events of the system. The services call these functions on the main thread, possibly before
// makeServices() returns.
struct SystemEvents {
    // A touchpad may have been connected, or access may have been granted. If the session is
    // active, the platform has already tried again to open its virtual keyboard.
    std::function<void()> devicesMayHaveChanged;

    // The user has started the program again while it was running.
    std::function<void()> reopened;
};

// Creates the services, the shared touch engine and the device manager. `activation` is used for
// the first window.
Services makeServices(const std::shared_ptr<MainQueue>& mainQueue,
                      const SingleInstance::Request& activation, SystemEvents events);

// Returns the user's stored settings. Several objects may exist at the same time.
std::shared_ptr<UserDefaults> makeUserDefaults();

// The services for an alert that is shown without the rest of the program. `foundation` keeps
// `appearance` up to date, and must be destroyed before `mainQueue`. `appearance` may outlive
// `foundation`.
struct AlertServices {
    std::shared_ptr<void> foundation;
    std::shared_ptr<AppearanceSettings> appearance;
};
AlertServices makeAlertServices(MainQueue& mainQueue, const SingleInstance::Request& activation);

} // namespace glidemap::platform
