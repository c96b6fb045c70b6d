#include "platform/linux/applications/linux_workspace.h"

#include "core/log.h"
#include "platform/linux/applications/application_follower.h"
#include "platform/linux/applications/application_launcher.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <atomic>
#include <utility>

namespace glidemap {

struct LinuxWorkspace::State {
    PublishedApplications published;
    KernelProcessReader processes;

    // Lives on the desktop thread.
    std::unique_ptr<ApplicationFollower> follower;
    std::unique_ptr<WindowBackend> backend;

    void start(DesktopThread& desktop, const std::vector<WindowBackendFactory>& candidates,
               std::chrono::milliseconds patience) {
        follower = std::make_unique<ApplicationFollower>(desktop, published, processes, patience);
        for (const WindowBackendFactory& make : candidates) {
            backend = make();
            if (backend->start(*follower)) {
                logLine("windows", "follows the one tried last");
                return;
            }
        }
        logLine("windows", "none can be followed: only bindings for all applications work");
        backend.reset();
    }

    void open(const std::string& url) {
        char* const path = g_filename_from_uri(url.c_str(), nullptr, nullptr);
        if (path != nullptr && backend != nullptr) {
            backend->bringForward(follower->windowsOf(path), [url] { launchApplication(url); });
        } else {
            launchApplication(url);
        }
        g_free(path);
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
    if (bundleID.empty() || bundleID.find('/') != std::string::npos)
        return std::nullopt; // an id must not lead out of the entries' folders
    GDesktopAppInfo* const info = g_desktop_app_info_new((bundleID + ".desktop").c_str());
    if (info == nullptr)
        return std::nullopt;
    std::optional<std::string> url;
    const char* const path = g_desktop_app_info_get_filename(info);
    if (char* const uri = path != nullptr ? g_filename_to_uri(path, nullptr, nullptr) : nullptr) {
        url = uri;
        g_free(uri);
    }
    g_object_unref(info);
    return url;
}

void LinuxWorkspace::openApplication(const std::string& url) {
    thread.submit([this, url] { state->open(url); });
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
