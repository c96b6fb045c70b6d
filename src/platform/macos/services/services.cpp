// Implements platform/services.h for macOS.
#include "platform/services.h"

#include "platform/common/shared_engine.h"
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
#include "platform/macos/session/macos_user_session.h"
#include "platform/macos/session/main_app_login_item.h"
#include "platform/macos/shell/apple_event.h"
#include "platform/macos/shell/macos_application_shell.h"
#include "platform/macos/shell/menu_bar.h"
#include "platform/macos/thread_setup.h"
#include "platform/macos/touch/touch_driver_platform.h"
#include "platform/macos/workspace/macos_workspace.h"
#include "platform/qt/qt_window_geometry.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace glidemap::platform {

namespace {

// Aborts if the system reports no Application Support folder, because the bindings could not be
// stored.
std::filesystem::path dataFolder() {
    if (const auto folder = applicationSupportFolder()) {
        return *folder;
    }
    std::cerr << "glidemap: the system reports no Application Support folder" << std::endl;
    std::abort();
}

std::filesystem::path ownFolder() {
    return dataFolder() / "Glidemap";
}

// Creates an object in an autorelease pool. Before the first iteration of the event loop, there is
// no other pool.
template <typename Make>
auto madeBeforeTheLoop(const Make& make) {
    decltype(make()) made;
    withinAutoreleasePool([&] { made = make(); });
    return made;
}

// Handles the Apple events for the program as a whole: reopen and quit.
class AppleEvents {
public:
    AppleEvents(std::shared_ptr<ApplicationShell> shell, std::function<void()> reopened)
        : shell(std::move(shell)), reopened(std::move(reopened)) {}

    void handle() {
        reopen.emplace(AppleEvent::Kind::reopen, reopened);
        // Qt's handler would refuse the request and quit the program later, but a refusal cancels
        // the logout.
        quit.emplace(AppleEvent::Kind::quit, [held = shell] { held->terminate(); });
    }

private:
    const std::shared_ptr<ApplicationShell> shell;
    const std::function<void()> reopened;
    std::optional<AppleEvent> reopen;
    std::optional<AppleEvent> quit;
};

// Installs the handlers from the event loop, because the application object installs its own
// handlers while it launches and would replace ours.
std::shared_ptr<AppleEvents> handledEvents(MainQueue& mainQueue,
                                           std::shared_ptr<ApplicationShell> shell,
                                           std::function<void()> reopened) {
    auto events = std::make_shared<AppleEvents>(std::move(shell), std::move(reopened));
    mainQueue.submit([weak = std::weak_ptr(events)] {
        if (const auto held = weak.lock()) {
            held->handle();
        }
    });
    return events;
}

} // namespace

// macOS activates programs without activation data.
SingleInstance::Request takeActivationToken() {
    return {};
}

std::filesystem::path runtimeFolder() {
    return ownFolder();
}

bool hasDisplay() {
    return true;
}

bool windowsHaveIcons() {
    return false;
}

std::string diagnosis(const std::string& version) {
    return "Glidemap " + version +
           "\n  accessibility: " + (ProcessTrust().isTrusted() ? "granted" : "not granted") +
           "\n  touch driver: " + touchDriverPlatform().libraryPath + "\n";
}

// macOS has no message bus.
std::function<void()> hideSilentBus() {
    return [] {
    };
}

// The system maintains the font list, so no scan is needed.
std::function<void()> startFontScan() {
    return [] {
    };
}

std::shared_ptr<UserDefaults> makeUserDefaults() {
    return std::make_shared<Preferences>();
}

AlertServices makeAlertServices(MainQueue& /*mainQueue*/,
                                const SingleInstance::Request& /*activation*/) {
    // MacosAppearance follows the system's settings by itself, so no other object has to update it.
    return {.foundation = nullptr,
            .appearance = madeBeforeTheLoop([] { return std::make_shared<MacosAppearance>(); })};
}

Services makeServices(const std::shared_ptr<MainQueue>& mainQueue,
                      const SingleInstance::Request& /*activation*/, SystemEvents events) {
    return madeBeforeTheLoop([&mainQueue, &events] {
        makeSharedEngine(touchDriverPlatform(), setUpResponsiveThread, withinAutoreleasePool);
        const auto shell = std::make_shared<MacosApplicationShell>();
        return Services{
            .foundation = handledEvents(*mainQueue, shell, std::move(events.reopened)),
            .version = bundleShortVersion(),
            .appearance = std::make_shared<MacosAppearance>(),
            .shell = shell,
            .statusBar = std::make_shared<MenuBar>(),
            .trust = std::make_shared<ProcessTrust>(),
            .workspace = std::make_shared<MacosWorkspace>(),
            .clickTap = std::make_shared<QuartzClickTap>(),
            .keyboard = std::make_shared<QuartzKeyEventPoster>(),
            .screenLock = std::make_shared<LoginFrameworkLock>(),
            .session = std::make_shared<MacosUserSession>(),
            .loginItems = std::make_shared<MainAppLoginItem>(),
            .keyPresses = std::make_shared<LocalKeyMonitor>(),
            .windowGeometry = std::make_shared<QtWindowGeometry>(ownFolder() / "window.ini"),
            .desktopHelper = nullptr,
            .notes = nullptr,
            .dataFolder = dataFolder,
            .useActivationToken = [](const SingleInstance::Request&) {},
        };
    });
}

} // namespace glidemap::platform
