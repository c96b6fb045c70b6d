// The system that the program runs on, as the program knows it: the class behind each port. There is
// one implementation a home, and which one is linked is the build's to say; nobody else in the
// program names a system.
//
// Thread:  the main thread.
// Owner:   the program makes one, within the application object's life and for longer than whatever
//          uses what it hands out.
// Errors:  as each port has them.
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
        // The program's, as people read it; nothing where nobody knows.
        std::optional<std::string> version;

        std::shared_ptr<AppearanceSettings> appearance;
        std::shared_ptr<ApplicationShell> shell;
        std::shared_ptr<StatusBar> statusBar;
        std::shared_ptr<AccessibilityTrust> trust;
        std::shared_ptr<Workspace> workspace;
        std::shared_ptr<ClickTap> clickTap;
        std::shared_ptr<KeyEventPoster> keyboard;
        std::shared_ptr<ScreenLock> screenLock;
        std::shared_ptr<UserSession> session = nullptr; // null where the system has one at a time
        std::shared_ptr<LoginItemService> loginItems;
        std::shared_ptr<KeyPresses> keyPresses;
        std::shared_ptr<WindowGeometryStore> windowGeometry;
        std::shared_ptr<DesktopHelper> desktopHelper; // null where the system needs none
        std::shared_ptr<SystemNotes> notes;           // null where there is nothing to add

        KeyboardKind keyboardKind = KeyboardKind::apple;

        // Where the bindings' folder is, or is to be.
        std::function<std::filesystem::path()> dataFolder;

        // The name under which the status item's icon is installed for the system's own drawing.
        const char* installedIcon = "";
        const char* installedIconOff = ""; // while gestures are switched off
    };

    // Before there is an application object.

    // This user's alone; there is the lock of the one program that runs.
    static std::filesystem::path runtimeFolder();

    // How the system knows that it was the user who started the program.
    static SingleInstance::Request proofOfThisLaunch();

    // Whether there is anything to show a window on. The toolkit aborts a program that tries without.
    static bool hasDisplay();

    // Whether windows have icons. Elsewhere the toolkit would show the icon in the dock, in place of the bundle's own.
    static bool windowsHaveIcons();

    // What the program finds on this computer, as a page for a report. For a program that ends
    // afterwards, without running exit handlers: a thread may still wait for a bus.
    static std::string diagnosis(const std::string& version);

    // Begins what takes long and can be done beside the main thread. The answer waits for its end,
    // which the first text needs.
    static std::function<void()> begin();

    // With one.

    // What the user has set before. Any number of them can be open.
    static std::shared_ptr<UserDefaults> userDefaults();

    // How an alert is to look that is shown without the rest of the program. The settings may be
    // kept for longer than their source, with which they change; that goes before the queue.
    struct AppearanceAlone {
        std::shared_ptr<AppearanceSettings> settings;
        std::shared_ptr<void> source;
    };
    static AppearanceAlone appearanceAlone(MainQueue& mainQueue);

    // Makes the shared touch engine and device manager, too.
    static std::unique_ptr<Home> make(const std::shared_ptr<MainQueue>& mainQueue);

    Home() = default;
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;
    virtual ~Home() = default;

    virtual const Ports& ports() const = 0;

    // It is another program's wish that the window be shown, which came with this.
    virtual void takeProof(const SingleInstance::Request& request) = 0;

    // Touchpads may have come, or access may have been given, and what types has tried again.
    std::function<void()> onDevicesChanged;

    // The user has started the program that runs once more, and the system has told it so.
    std::function<void()> onReopen;
};

} // namespace glidemap
