#include "platform/common/shared_engine.h"
#include "platform/home.h"
#include "platform/macos/access/process_trust.h"
#include "platform/macos/appearance/macos_appearance.h"
#include "platform/macos/autorelease_pool.h"
#include "platform/macos/bundle/application_support.h"
#include "platform/macos/bundle/main_bundle.h"
#include "platform/macos/clicks/quartz_click_tap.h"
#include "platform/macos/defaults/preferences.h"
#include "platform/macos/keyboard/local_key_monitor.h"
#include "platform/macos/keyboard/quartz_key_event_poster.h"
#include "platform/macos/session/login_framework_lock.h"
#include "platform/macos/session/main_app_login_item.h"
#include "platform/macos/shell/apple_event.h"
#include "platform/macos/shell/macos_application_shell.h"
#include "platform/macos/shell/menu_bar.h"
#include "platform/macos/thread_setup.h"
#include "platform/macos/touch/touch_driver_platform.h"
#include "platform/macos/workspace/macos_workspace.h"
#include "platform/qt/qt_window_geometry.h"

#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>

namespace glidemap {

namespace {

// Without this folder the bindings cannot be stored, so the program cannot work.
std::filesystem::path dataFolder() {
    if (const auto folder = applicationSupportFolder()) {
        return *folder;
    }
    std::cerr << "glidemap: the system names no folder for Application Support" << std::endl;
    std::abort();
}

std::filesystem::path ownFolder() {
    return dataFolder() / "Glidemap";
}

// The event loop drains a pool in each iteration. Objects that are created before the first one
// need this pool.
template <typename Make>
auto madeBeforeTheLoop(const Make& make) {
    decltype(make()) made;
    withinAutoreleasePool([&] { made = make(); });
    return made;
}

class MacosHome : public Home {
public:
    explicit MacosHome(const std::shared_ptr<MainQueue>& mainQueue) {
        makeSharedEngine(touchDriverPlatform(), setUpResponsiveThread, withinAutoreleasePool);
        given = {
            .version = bundleShortVersion(),
            .appearance = std::make_shared<MacosAppearance>(),
            .shell = std::make_shared<MacosApplicationShell>(),
            .statusBar = std::make_shared<MenuBar>(),
            .trust = std::make_shared<ProcessTrust>(),
            .workspace = std::make_shared<MacosWorkspace>(),
            .clickTap = std::make_shared<QuartzClickTap>(),
            .keyboard = std::make_shared<QuartzKeyEventPoster>(),
            .screenLock = std::make_shared<LoginFrameworkLock>(),
            .loginItems = std::make_shared<MainAppLoginItem>(),
            .keyPresses = std::make_shared<LocalKeyMonitor>(),
            .windowGeometry = std::make_shared<QtWindowGeometry>(ownFolder() / "window.ini"),
            .desktopHelper = nullptr,
            .notes = nullptr,
            .dataFolder = dataFolder,
        };
        // Installs the handlers later, because the application object installs its own while it
        // launches.
        mainQueue->submit([weak = std::weak_ptr(life)] {
            if (const auto home = weak.lock()) {
                (*home)->handleAppleEvents();
            }
        });
    }

    const Ports& ports() const override { return given; }

    // macOS needs no activation data.
    void takeActivationToken(const SingleInstance::Request& /*request*/) override {}

private:
    void handleAppleEvents() {
        reopen.emplace(AppleEvent::Kind::reopen, [this] {
            if (onReopen) {
                onReopen();
            }
        });
        // Qt would first refuse and quit later, which cancels a logout.
        quit.emplace(AppleEvent::Kind::quit, [shell = given.shell] { shell->terminate(); });
    }

    Ports given;
    std::optional<AppleEvent> reopen;
    std::optional<AppleEvent> quit;
    std::shared_ptr<MacosHome*> life = std::make_shared<MacosHome*>(this);
};

} // namespace

std::filesystem::path Home::runtimeFolder() {
    return ownFolder();
}

SingleInstance::Request Home::activationToken() {
    return {};
}

bool Home::hasDisplay() {
    return true;
}

bool Home::windowsHaveIcons() {
    return false;
}

std::string Home::diagnosis(const std::string& version) {
    return "Glidemap " + version +
           "\n  accessibility: " + (ProcessTrust().isTrusted() ? "granted" : "not granted") +
           "\n  touch driver: " + touchDriverPlatform().libraryPath + "\n";
}

std::function<void()> Home::begin() {
    return [] {
    };
}

std::shared_ptr<UserDefaults> Home::userDefaults() {
    return std::make_shared<Preferences>();
}

Home::AppearanceAlone Home::appearanceAlone(MainQueue& /*mainQueue*/) {
    // The system updates the settings, so there is no source.
    return {madeBeforeTheLoop([] { return std::make_shared<MacosAppearance>(); }), nullptr};
}

std::unique_ptr<Home> Home::make(const std::shared_ptr<MainQueue>& mainQueue) {
    return madeBeforeTheLoop([&mainQueue] { return std::make_unique<MacosHome>(mainQueue); });
}

} // namespace glidemap
