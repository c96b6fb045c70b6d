#include "dispatch/gesture_dispatcher.h"
#include "platform/home.h"
#include "platform/linux/access/udev_input_nodes.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/desktop/display.h"
#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/user_folders.h"
#include "platform/linux/diagnosis/diagnosis.h"
#include "platform/linux/keyboard/evdev_hardware_keys.h"
#include "platform/linux/session/autostart_entry.h"
#include "platform/linux/shell/font_reading.h"
#include "platform/linux/shell/gnome_desktop_helper.h"
#include "platform/linux/shell/linux_application_shell.h"
#include "platform/linux/shell/linux_desktop_keys.h"
#include "platform/linux/shell/linux_notes.h"
#include "platform/linux/shell/linux_services.h"
#include "platform/linux/shell/linux_status_bar.h"
#include "platform/linux/shell/portal_appearance.h"
#include "platform/linux/shell/toolkit_bus.h"
#include "platform/qt/first_exposure.h"
#include "platform/qt/qt_user_defaults.h"
#include "platform/qt/qt_window_geometry.h"
#include "ui/recorder/toolkit_key_presses.h"

#include <QCoreApplication>
#include <clocale>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

namespace glidemap {

namespace {

class LinuxHome : public Home {
public:
    explicit LinuxHome(const std::shared_ptr<MainQueue>& mainQueue) : services(mainQueue) {
        services.prompt().waitUntilReady();
        services.onDevicesChanged = [this] {
            notes->accessMayHaveChanged();
            if (onDevicesChanged) {
                onDevicesChanged();
            }
        };
        given = {
            .version = QCoreApplication::applicationVersion().toStdString(),
            .appearance = services.appearance,
            .shell = shell,
            .statusBar = std::make_shared<LinuxStatusBar>(),
            .trust = services.trust,
            .workspace = services.workspace,
            .clickTap = services.clickTap,
            .keyboard = services.keyboard,
            .screenLock = services.screenLock,
            .session = services.session,
            .loginItems = std::make_shared<AutostartEntry>(AutostartPlaces::ofThisProcess()),
            .keyPresses = std::make_shared<ToolkitKeyPresses>(std::make_unique<EvdevHardwareKeys>(),
                                                              std::make_unique<LinuxDesktopKeys>()),
            .windowGeometry =
                std::make_shared<QtWindowGeometry>(userStateFolder() / "glidemap" / "window.ini"),
            .desktopHelper = GnomeDesktopHelper::ofThisSession(mainQueue),
            .notes = notes,
            .keyboardKind = KeyboardKind::pc,
            .dataFolder = userDataFolder,
            .installedIcon = "org.glidemap.Glidemap-symbolic",
            .installedIconOff = "org.glidemap.Glidemap-off-symbolic",
        };
    }

    const Ports& ports() const override { return given; }

    void takeActivationToken(const SingleInstance::Request& request) override {
        shell->requestToken(request.activationToken, request.startupID);
    }

private:
    LinuxServices services;
    const std::shared_ptr<LinuxNotes> notes =
        std::make_shared<LinuxNotes>(std::make_unique<UdevInputNodes>(), services.prompt());
    // The notice in the window explains the prompt, so the prompt waits for the window.
    FirstExposure windowIsThere{[this] {
        services.prompt().ready();
    }};
    const std::shared_ptr<LinuxApplicationShell> shell = std::make_shared<LinuxApplicationShell>(
        [workspace = services.workspace] { workspace->bringOwnWindowForward(); });
    Ports given;
};

// While another thread reads the fonts, and with them the locale and the environment, Qt sets the
// locale and unsets two variables. A locale that is already set stays unchanged. Variables at the
// end of the environment can be unset without moving others that a thread is reading.
void keepStillForReaders() {
    std::setlocale(LC_ALL, "");
    for (const char* const taken : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        if (const char* const value = std::getenv(taken)) {
            const std::string kept = value;
            unsetenv(taken);
            setenv(taken, kept.c_str(), 1);
        }
    }
}

// The portal together with the thread that queries it.
struct PortalAlone {
    explicit PortalAlone(MainQueue& mainQueue) : portal(desktop, mainQueue) {}

    DesktopThread desktop;
    PortalAppearance portal;
};

} // namespace

std::filesystem::path Home::runtimeFolder() {
    return userRuntimeFolder();
}

SingleInstance::Request Home::activationToken() {
    return {fromEnvironment("XDG_ACTIVATION_TOKEN"), fromEnvironment("DESKTOP_STARTUP_ID")};
}

bool Home::hasDisplay() {
    return glidemap::hasDisplay();
}

bool Home::windowsHaveIcons() {
    return true;
}

std::string Home::diagnosis(const std::string& version) {
    return diagnosisPage({
        .version = version,
        .toolkit = std::string("Qt ") + qVersion(),
        .isSwitchedOn = userDefaults()->boolean(GestureDispatcher::masterEnabledKey).value_or(true),
    });
}

std::function<void()> Home::begin() {
    const auto bus = std::make_shared<ToolkitBus>(); // before other threads read the environment
    keepStillForReaders();
    const auto fonts = std::make_shared<FontReading>();
    return [bus, fonts] {
        fonts->finish();
        bus->finish();
    };
}

std::shared_ptr<UserDefaults> Home::userDefaults() {
    return std::make_shared<QtUserDefaults>();
}

Home::AppearanceAlone Home::appearanceAlone(MainQueue& mainQueue) {
    const auto alone = std::make_shared<PortalAlone>(mainQueue);
    return {alone->portal.settings(), alone};
}

std::unique_ptr<Home> Home::make(const std::shared_ptr<MainQueue>& mainQueue) {
    return std::make_unique<LinuxHome>(mainQueue);
}

} // namespace glidemap
