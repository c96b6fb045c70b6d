#include "platform/linux/applications/linux_workspace.h"

#include "core/log.h"
#include "platform/linux/applications/application_follower.h"
#include "platform/linux/applications/application_launcher.h"
#include "platform/linux/desktop/glib_owner.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <unistd.h>

#include <atomic>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

LaunchedApplication described(GDesktopAppInfo* entry) {
    std::string identifier = textOrEmpty(g_app_info_get_id(G_APP_INFO(entry)));
    constexpr std::string_view ending = ".desktop";
    if (identifier.ends_with(ending)) {
        identifier.resize(identifier.size() - ending.size());
    }
    return {identifier, textOrEmpty(g_app_info_get_name(G_APP_INFO(entry))),
            textOrEmpty(g_desktop_app_info_get_startup_wm_class(entry))};
}

using Entry = std::shared_ptr<GDesktopAppInfo>;

// Returns null if no entry with this identifier is installed. Rejects an identifier with a slash,
// because it could name a file outside the folders of the entries.
Entry entryOf(const std::string& bundleID) {
    const bool isIdentifier = !bundleID.empty() && bundleID.find('/') == std::string::npos;
    return GlibOwner<GDesktopAppInfo>(
        isIdentifier ? g_desktop_app_info_new((bundleID + ".desktop").c_str()) : nullptr);
}

} // namespace

struct LinuxWorkspace::State {
    PublishedApplications published;
    KernelProcessReader processes;

    // These objects live on the desktop thread.
    std::unique_ptr<ApplicationFollower> follower;
    std::unique_ptr<WindowBackend> backend;

    void start(DesktopThread& desktop, const std::vector<WindowBackendFactory>& candidates,
               std::chrono::milliseconds patience) {
        follower = std::make_unique<ApplicationFollower>(desktop, published, processes, patience);
        for (const WindowBackendFactory& make : candidates) {
            backend = make();
            if (backend->start(*follower)) {
                logLine("windows", "uses the window backend that was tried last");
                return;
            }
        }
        logLine("windows", "no window backend works here: only global bindings run");
        backend.reset();
    }

    void bringForward(const char* path, const std::function<void()>& launch) const {
        const auto count = std::make_shared<int>(0);
        const auto choose = [count,
                             chosen = follower->windowsOf(path)](const WindowIdentity& window) {
            const bool isChosen = chosen(window);
            *count += isChosen ? 1 : 0;
            return isChosen;
        };
        backend->bringForward(choose, [launch] {
            logLine("windows", "no window came forward: launches it");
            launch();
        });
        if (*count > 0) {
            logLine("windows", "activates the last used of ", *count, " windows of ", path);
        }
    }

    // Caches the entry that was found last, because it is usually opened next. Used on the main
    // thread only.
    std::string foundURL;
    std::shared_ptr<GDesktopAppInfo> found;

    std::shared_ptr<GDesktopAppInfo> takeFound(const std::string& url) {
        std::shared_ptr<GDesktopAppInfo> entry = url == foundURL ? std::move(found) : nullptr;
        found.reset();
        return entry;
    }

    void open(const std::string& url, const std::shared_ptr<GDesktopAppInfo>& entry) {
        const auto launch = [this, url, entry] {
            if (entry == nullptr) {
                launchApplication(url);
            } else if (backend != nullptr && acceptsLaunchToken(entry.get())) {
                backend->requestToken(described(entry.get()), [entry](const LaunchToken& token) {
                    launchApplication(entry.get(), token);
                });
            } else {
                launchApplication(entry.get(), {});
            }
        };
        const auto path = takeText(g_filename_from_uri(url.c_str(), nullptr, nullptr));
        if (path && backend != nullptr) {
            bringForward(path->c_str(), launch);
        } else {
            launch();
        }
    }

    void bringOwnForward() const {
        if (backend == nullptr) {
            return;
        }
        backend->bringForward(
            [](const WindowIdentity& window) {
                return window.process ? window.process == getpid() : window.appID == ownIdentifier;
            },
            [] { logLine("windows", "our own window was not activated"); });
    }

    void stop() {
        backend.reset();
        follower.reset();
    }
};

LinuxWorkspace::LinuxWorkspace(DesktopThread& desktop, std::vector<WindowBackendFactory> candidates,
                               Panels ownPanels, std::chrono::milliseconds patienceWithNone)
    : thread(desktop), panels(std::move(ownPanels)), state(std::make_unique<State>()) {
    thread.submit([begun = state.get(), &desktop, choice = std::move(candidates),
                   patienceWithNone] { begun->start(desktop, choice, patienceWithNone); });
}

LinuxWorkspace::~LinuxWorkspace() {
    thread.call([this] { state->stop(); });
}

Application LinuxWorkspace::frontmostApplication() const {
    return *state->published.frontmost.load(std::memory_order_acquire);
}

std::vector<Application> LinuxWorkspace::runningApplications() const {
    return *state->published.running.get();
}

std::optional<std::string> LinuxWorkspace::urlForApplication(const std::string& bundleID) const {
    const Entry entry = entryOf(bundleID);
    const char* const path =
        entry != nullptr ? g_desktop_app_info_get_filename(entry.get()) : nullptr;
    auto url = takeText(path != nullptr ? g_filename_to_uri(path, nullptr, nullptr) : nullptr);
    if (url) {
        state->found = entry;
        state->foundURL = *url;
    }
    return url;
}

std::optional<std::string> LinuxWorkspace::iconOfApplication(const std::string& bundleID) const {
    const Entry entry = entryOf(bundleID);
    return takeText(entry != nullptr
                        ? g_desktop_app_info_get_string(entry.get(), G_KEY_FILE_DESKTOP_KEY_ICON)
                        : nullptr);
}

void LinuxWorkspace::openApplication(const std::string& url) {
    thread.submit([this, url, entry = state->takeFound(url)] { state->open(url, entry); });
}

void LinuxWorkspace::bringOwnWindowForward() {
    thread.submit([this] { state->bringOwnForward(); });
}

void LinuxWorkspace::openMissionControl() {
    if (panels.missionControl) {
        panels.missionControl();
    }
}

bool LinuxWorkspace::hasMissionControl() const {
    return !panels.hasMissionControl || panels.hasMissionControl();
}

void LinuxWorkspace::openAccessibilitySettings() {
    if (panels.accessibilitySettings) {
        panels.accessibilitySettings();
    }
}

void LinuxWorkspace::openURL(const std::string& url) {
    thread.submit([url] { launchHandler(url); });
}

} // namespace glidemap
