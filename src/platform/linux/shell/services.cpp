// Implements platform/services.h for Linux.
#include "platform/services.h"

#include "dispatch/gesture_dispatcher.h"
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
#include <utility>

namespace glidemap::platform {

namespace {

std::string takeFromEnvironment(const char* variable) {
    std::string value = fromEnvironment(variable);
    unsetenv(variable); // NOLINT(concurrency-mt-unsafe): no other thread runs yet
    return value;
}

// The application shell stores the token in the environment, where Qt reads it. Must be called
// before other threads that may read the environment are created.
std::shared_ptr<LinuxApplicationShell> makeShell(const SingleInstance::Request& activation,
                                                 std::function<void()> bringForward = {}) {
    auto shell = std::make_shared<LinuxApplicationShell>(std::move(bringForward));
    shell->requestToken(activation.activationToken, activation.startupID);
    return shell;
}

// Objects that must outlive the program's services.
struct Foundation {
    Foundation(const std::shared_ptr<MainQueue>& mainQueue,
               const SingleInstance::Request& activation, SystemEvents events)
        : shell(makeShell(activation, [this] { bringForward(); })), services(mainQueue),
          systemEvents(std::move(events)) {
        services.prompt().waitUntilReady();
        services.onDevicesChanged = [this] {
            notes->accessMayHaveChanged();
            systemEvents.devicesMayHaveChanged();
        };
    }
    Foundation(const Foundation&) = delete;
    Foundation& operator=(const Foundation&) = delete;

    void bringForward() const { services.workspace->bringOwnWindowForward(); }

    const std::shared_ptr<LinuxApplicationShell> shell;
    LinuxServices services;
    const SystemEvents systemEvents;
    const std::shared_ptr<LinuxNotes> notes =
        std::make_shared<LinuxNotes>(std::make_unique<UdevInputNodes>(), services.prompt());
    // The prompt is delayed until the window is visible, because a notice in the window explains
    // it.
    FirstExposure windowIsThere{[this] {
        services.prompt().ready();
        shell->endLaunch();
    }};
};

// The portal with the thread that queries it, and the object that ends the launch when the alert is
// visible.
struct AlertFoundation {
    AlertFoundation(MainQueue& mainQueue, const SingleInstance::Request& activation)
        : shell(makeShell(activation)), portal(desktop, mainQueue) {}

    const std::shared_ptr<LinuxApplicationShell> shell;
    DesktopThread desktop;
    PortalAppearance portal;
    FirstExposure alertIsThere{[this] {
        shell->endLaunch();
    }};
};

} // namespace

SingleInstance::Request takeActivationToken() {
    return {takeFromEnvironment("XDG_ACTIVATION_TOKEN"), takeFromEnvironment("DESKTOP_STARTUP_ID")};
}

std::filesystem::path runtimeFolder() {
    return userRuntimeFolder();
}

bool hasDisplay() {
    return glidemap::hasDisplay();
}

bool windowsHaveIcons() {
    return true;
}

std::string diagnosis(const std::string& version) {
    return diagnosisPage({
        .version = version,
        .toolkit = std::string("Qt ") + qVersion(),
        .isSwitchedOn =
            makeUserDefaults()->boolean(GestureDispatcher::masterEnabledKey).value_or(true),
    });
}

std::function<void()> hideSilentBus() {
    return [bus = std::make_shared<ToolkitBus>()] {
        bus->finish();
    };
}

std::function<void()> startFontScan() {
    // The locale is set here, because Qt would otherwise set it while the font thread reads it. Qt
    // sets the same locale again, which changes nothing.
    std::setlocale(LC_ALL, ""); // NOLINT(concurrency-mt-unsafe): no other thread runs yet
    return [fonts = std::make_shared<FontReading>()] {
        fonts->finish();
    };
}

std::shared_ptr<UserDefaults> makeUserDefaults() {
    return std::make_shared<QtUserDefaults>();
}

AlertServices makeAlertServices(MainQueue& mainQueue, const SingleInstance::Request& activation) {
    const auto foundation = std::make_shared<AlertFoundation>(mainQueue, activation);
    return {.foundation = foundation, .appearance = foundation->portal.settings()};
}

Services makeServices(const std::shared_ptr<MainQueue>& mainQueue,
                      const SingleInstance::Request& activation, SystemEvents events) {
    const auto foundation = std::make_shared<Foundation>(mainQueue, activation, std::move(events));
    const LinuxServices& services = foundation->services;
    return {
        .foundation = foundation,
        .version = QCoreApplication::applicationVersion().toStdString(),
        .appearance = services.appearance,
        .shell = foundation->shell,
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
        .notes = foundation->notes,
        .keyboardKind = KeyboardKind::pc,
        .dataFolder = userDataFolder,
        .useActivationToken =
            [shell = foundation->shell](const SingleInstance::Request& request) {
                shell->requestToken(request.activationToken, request.startupID);
            },
        .installedIcon = "org.glidemap.Glidemap-symbolic",
        .installedIconOff = "org.glidemap.Glidemap-off-symbolic",
    };
}

} // namespace glidemap::platform
